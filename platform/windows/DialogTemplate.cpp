#include "platform/windows/DialogTemplate.h"

#include "platform/com/ComText.h"
#include "platform/windows/Module.h"
#include "platform/windows/WindowText.h"

namespace kestrune {

namespace {

// Where things stand in an extended template, in words.
constexpr std::size_t kStyle = 6;
constexpr std::size_t kMenu = 13;
constexpr std::size_t kFontWords = 3;  // size, weight, slant and character set; the font's name follows
constexpr WORD kNumberFollows = 0xFFFF;

NONCLIENTMETRICSW Metrics() {
  NONCLIENTMETRICSW metrics = {.cbSize = sizeof metrics};
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return metrics;
}

/// The font's height in points, as templates have it.
WORD PointsOf(const LOGFONTW& font) {
  const int dots_per_inch = GetDeviceCaps(WindowContext(nullptr).Get(), LOGPIXELSY);
  return static_cast<WORD>(MulDiv(std::abs(font.lfHeight), 72, dots_per_inch));
}

/// The place after a name or number that begins at `at`.
std::size_t Past(const WORD* words, std::size_t at) {
  if (words[at] == kNumberFollows) return at + 2;
  while (words[at] != 0) ++at;
  return at + 1;
}

std::size_t Aligned(std::size_t words) {
  return (words + 1) / 2 * 2;
}

}  // namespace

DialogTemplate::DialogTemplate(const Text& name) {
  const HRSRC found = FindResourceW(ThisModule(), Wide(name), reinterpret_cast<LPCWSTR>(RT_DIALOG));
  if (!found) return;
  const auto* words = static_cast<const WORD*>(LockResource(LoadResource(ThisModule(), found)));
  const std::size_t size = SizeofResource(ThisModule(), found) / sizeof(WORD);
  words_.assign(words, words + size);
  if (!(words[kStyle] & DS_SETFONT)) return;

  std::size_t font_at = kMenu;
  for (int part = 0; part < 3; ++part) font_at = Past(words, font_at);  // menu, class, title
  const std::size_t items_at = Aligned(Past(words, font_at + kFontWords));
  const LOGFONTW font = Metrics().lfMessageFont;
  words_.resize(font_at);
  words_.push_back(PointsOf(font));
  words_.push_back(static_cast<WORD>(font.lfWeight));
  words_.push_back(static_cast<WORD>(font.lfItalic | font.lfCharSet << 8));
  words_.insert(words_.end(), font.lfFaceName, font.lfFaceName + wcslen(font.lfFaceName) + 1);
  words_.resize(Aligned(words_.size()));
  words_.insert(words_.end(), words + items_at, words + size);
}

const DLGTEMPLATE* DialogTemplate::Get() const {
  return words_.empty() ? nullptr : reinterpret_cast<const DLGTEMPLATE*>(words_.data());
}

}  // namespace kestrune
