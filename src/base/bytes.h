// Little-endian integers and floats in byte buffers.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>

namespace ostrinka {

static_assert(std::endian::native == std::endian::little, "the file formats are little-endian and copied as they are");

template <typename T>
T LoadLe(const void* from) {
  T value;
  std::memcpy(&value, from, sizeof value);
  return value;
}

template <typename T>
void StoreLe(void* to, T value) {
  std::memcpy(to, &value, sizeof value);
}

template <typename T>
void AppendLe(std::string& to, T value) {
  to.append(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace ostrinka
