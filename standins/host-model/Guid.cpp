#include "standins/host-model/Guid.h"

#include <cstdint>
#include <random>

namespace kestrune::standins {

namespace {

/// Eight hexadecimal digits of chance.
Text RandomDigits() {
  static std::random_device device;
  std::uint32_t bits = device();
  Text digits;
  for (int i = 0; i < 8; ++i, bits >>= 4) digits += u"0123456789ABCDEF"[bits & 0xF];
  return digits;
}

}  // namespace

Text NewGuid() {
  Text digits = RandomDigits() + RandomDigits() + RandomDigits() + RandomDigits();
  digits[12] = u'4';                         // the version: made by chance
  digits[16] = u"89AB"[(digits[16] & 0x3)];  // the variant that all GUIDs of today have
  for (const std::size_t hyphen : {8, 13, 18, 23}) digits.insert(hyphen, u"-");
  return u"{" + digits + u"}";
}

}  // namespace kestrune::standins
