#include "platform/posix/posix_system.h"

#include <curl/curl.h>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <random>
#include <thread>

namespace ostrinka {

Date SystemClock::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  const Date day = Date::FromYmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value_or(Date());
  return Date(day.days() + (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / 86400.0);
}

double SystemRandom::Fraction() {
  static thread_local std::mt19937_64 engine{std::random_device{}()};
  return static_cast<double>(engine() >> 11) * 0x1.0p-53;
}

void SystemWaiter::Wait(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

namespace {

struct Received {
  std::string bytes;
  int64_t limit;
};

size_t Receive(char* data, size_t size, size_t count, void* context) {
  auto& received = *static_cast<Received*>(context);
  const size_t length = size * count;
  if (static_cast<int64_t>(received.bytes.size() + length) > received.limit) return 0;
  received.bytes.append(data, length);
  return length;
}

}  // namespace

bool HttpDownload::Fetch(const std::string& url, const std::string& path, int64_t limit) {
  const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> curl(curl_easy_init(), curl_easy_cleanup);
  if (!curl) return false;
  Received received{{}, limit};
  curl_easy_setopt(curl.get(), CURLOPT_URL, url.c_str());
  curl_easy_setopt(curl.get(), CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl.get(), CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(curl.get(), CURLOPT_MAXREDIRS, 5L);
  curl_easy_setopt(curl.get(), CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl.get(), CURLOPT_FAILONERROR, 1L);
  curl_easy_setopt(curl.get(), CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(curl.get(), CURLOPT_CONNECTTIMEOUT, 10L);
  curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, 30L);
  curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, Receive);
  curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &received);
  if (curl_easy_perform(curl.get()) != CURLE_OK) return false;
  return files_.WriteAll(path, received.bytes);
}

bool PosixSerialPort::Open(const std::string& device, int bits_per_second) {
  Close();
  const speed_t speed = bits_per_second == 19200 ? B19200 : B9600;
  descriptor_ = open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor_ < 0) return false;
  termios settings{};
  if (tcgetattr(descriptor_, &settings) != 0) {
    Close();
    return false;
  }
  cfmakeraw(&settings);
  settings.c_cflag |= CLOCAL | CREAD;
  settings.c_cflag &= ~static_cast<tcflag_t>(CRTSCTS | CSTOPB | PARENB);
  cfsetispeed(&settings, speed);
  cfsetospeed(&settings, speed);
  if (tcsetattr(descriptor_, TCSANOW, &settings) == 0) return true;
  Close();
  return false;
}

bool PosixSerialPort::Write(const std::string& bytes) {
  size_t done = 0;
  while (descriptor_ >= 0 && done < bytes.size()) {
    const ssize_t put = write(descriptor_, bytes.data() + done, bytes.size() - done);
    if (put > 0) {
      done += static_cast<size_t>(put);
    } else if (put < 0 && (errno == EAGAIN || errno == EINTR)) {
      pollfd ready{descriptor_, POLLOUT, 0};
      if (poll(&ready, 1, 2000) <= 0) return false;
    } else {
      return false;
    }
  }
  return descriptor_ >= 0;
}

int64_t PosixSerialPort::Read(void* to, size_t length, int timeout_milliseconds) {
  if (descriptor_ < 0) return -1;
  pollfd ready{descriptor_, POLLIN, 0};
  const int events = poll(&ready, 1, timeout_milliseconds);
  if (events <= 0) return events < 0 ? -1 : 0;
  return read(descriptor_, to, length);
}

void PosixSerialPort::Close() {
  if (descriptor_ >= 0) close(descriptor_);
  descriptor_ = -1;
}

std::string ExecutableFolder() {
  char path[4096];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  if (length <= 0) return "./";
  const std::string text(path, static_cast<size_t>(length));
  return text.substr(0, text.rfind('/') + 1);
}

}  // namespace ostrinka
