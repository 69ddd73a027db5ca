#include "standins/doors-database/RichText.h"

namespace kestrune::standins {

Text EscapeMarkup(TextView plain) {
  Text markup;
  for (const char16_t c : plain) {
    if (c == u'{' || c == u'}' || c == u'\\') markup += u'\\';
    markup += c;
  }
  return markup;
}

}  // namespace kestrune::standins
