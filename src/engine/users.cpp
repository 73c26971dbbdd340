// Users of a table: the slots of its header.
#include "base/text.h"
#include "engine/qdbase_state.h"

namespace ostrinka {
namespace {

constexpr char kDenied[] = "Permission denied";
constexpr char kBadUser[] = "Invalid user name or password";

bool IsGoodUser(const std::string& name, const std::string& password) {
  return !IsAllDigits(name) && CharacterCount(name) >= 1 && CharacterCount(name) <= 16 && CharacterCount(password) >= 1 &&
         CharacterCount(password) <= 16 && IsPlainName(name) && IsPlainName(password);
}

}  // namespace

int ClassQDBASE::USER_COUNT() {
  return state_->header.user_count();
}

std::string ClassQDBASE::USER_NAME(int n) {
  if (n < 1) return state_->user;
  return n <= USER_COUNT() ? state_->header.User(n).name : std::string();
}

std::string ClassQDBASE::USER_PASS(int n) {
  if (n < 1) return state_->password;
  return n <= USER_COUNT() ? state_->header.User(n).password : std::string();
}

int32_t ClassQDBASE::USER_TYPE(int n) {
  return n >= 1 && n <= USER_COUNT() ? state_->header.User(n).type : static_cast<int32_t>(kInvalidUser);
}

int32_t ClassQDBASE::LOGIN_TYPE() const {
  return state_->login_type;
}

void ClassQDBASE::ForReadingOnly() {
  if (state_->file.IsOpen()) state_->login_type = kInvalidUser;
}

bool ClassQDBASE::LOGIN_EXIST() {
  State& s = *state_;
  if (!s.file.IsOpen() || !s.ReadHeaderAgain()) return false;
  for (int n = 1; n <= USER_COUNT(); ++n) {
    const UserSlot slot = s.header.User(n);
    if (slot.name == s.user && slot.password == s.password) return true;
  }
  return false;
}

bool ClassQDBASE::USER_ADD(std::string_view name, std::string_view password, int32_t type) {
  State& s = *state_;
  if (!s.IsOwner()) return s.Fail(35, kDenied);
  if (!s.file.IsOpen()) return s.Fail(35);
  const UserSlot user{Trim(name), Trim(password), type, 0, 0};
  if (!IsGoodUser(user.name, user.password)) return s.Fail(35, kBadUser);
  if (!s.ReadyToWrite() || !s.ReadHeaderAgain()) return s.Fail(35);
  const int count = USER_COUNT();
  if (count >= kMaxUsers) return s.Fail(35);
  for (int n = 1; n <= count; ++n) {
    if (s.header.User(n).name == user.name) return s.Fail(10, "User '" + user.name + "' already exist");
  }
  s.header.SetUserCount(count + 1);
  s.header.SetUser(count + 1, user);
  return s.WriteHeader() || s.FailPlatform(s.file.LastError());
}

bool ClassQDBASE::USER_DELETE(int n) {
  State& s = *state_;
  if (!s.IsOwner()) return s.Fail(35, kDenied);  // kept: the code of adding one, which callers know as "no right"
  if (!s.ReadyToWrite() || !s.ReadHeaderAgain()) return s.Fail(37);
  if (n < 1 || n > USER_COUNT() || USER_COUNT() == 1 || n == s.login_slot) return s.Fail(37);
  s.header.RemoveUser(n);
  if (n < s.login_slot) --s.login_slot;
  return s.WriteHeader() || s.FailPlatform(s.file.LastError());
}

bool ClassQDBASE::USER_SET(int n, std::string_view name, std::string_view password, int32_t type) {
  State& s = *state_;
  if (!s.IsOwner()) return s.Fail(35, kDenied);
  if (!s.file.IsOpen() || !s.ReadyToWrite() || !s.ReadHeaderAgain()) return false;
  if (n < 1 || n > USER_COUNT()) return false;
  UserSlot user = s.header.User(n);
  user.name = Trim(name);
  user.password = Trim(password);
  user.type = type;
  if (!IsGoodUser(user.name, user.password)) return s.Fail(35, kBadUser);
  s.header.SetUser(n, user);
  return s.WriteHeader() || s.FailPlatform(s.file.LastError());
}

}  // namespace ostrinka
