// Words that a generated company is made of: names of people, firms, streets, towns and goods, drawn with a fixed seed.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace ostrinka {

// The same words in the same order on every machine: only the engine's raw numbers are used, whose sequence is laid down.
class Words {
 public:
  explicit Words(uint32_t seed) : engine_(seed) {}

  int Below(int limit) { return static_cast<int>(engine_() % static_cast<uint32_t>(limit)); }
  bool OneIn(int n) { return Below(n) == 0; }
  std::string Digits(int count);

  std::string Surname(bool woman);
  std::string Person();
  std::string Firm();  // about one in seven holds "kow"
  std::string Article();
  std::string Street();
  std::string Note();
  struct Town {
    std::string_view name, postal_prefix;
    int region;  // record of regiony
  };
  const Town& ATown();

 private:
  template <typename List>
  const auto& OneOf(const List& list) {
    return list[static_cast<size_t>(Below(static_cast<int>(std::size(list))))];
  }

  std::mt19937 engine_;
};

}  // namespace ostrinka
