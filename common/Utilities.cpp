#include "common/Utilities.h"

#include <algorithm>

#include "platform/Files.h"

namespace kestrune {

namespace {

constexpr int kJapaneseCharset = 128;

bool IsRefusedByXml(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code < 32 && code != '\t' && code != '\n' && code != '\r';
}

}  // namespace

void ApplyStandardFont(Form& form) {
  ApplyFont(form, LoadResText(text::kStandardFont));
}

void ApplyFont(Form& form, const Text& font_entry) {
  if (font_entry == u"StandardFont") return;
  form.FontName = font_entry;
  for (Control* control : form.Controls()) {
    control->FontName = font_entry;
    control->FontCharset = kJapaneseCharset;
  }
}

Text CleanExportFile(const Platform& platform, const Text& path) {
  std::string bytes = ReadFile(path);
  bytes.erase(std::remove_if(bytes.begin(), bytes.end(), IsRefusedByXml), bytes.end());
  const Text copy = platform.folders.Temp() + u"plexadoors.tmp";
  WriteFile(copy, bytes);
  return copy;
}

Text CannotReadXml(const Text& path) {
  return u"Can't read XML (" + path + u")";
}

bool IsRtf(TextView text) {
  return text.substr(0, 6) == u"{\\rtf1";
}

Text RtfToNotes(const orim::Repository& repository, const Text& text) {
  Text notes = repository.NotesFromFormat(u"RTF", text);
  if (TextView(notes).ends_with(kCrLf)) notes.resize(notes.size() - kCrLf.size());
  return notes;
}

void ShowMessage(Desktop& desktop, Text body, Icon icon) {
  desktop.Show({.Body = std::move(body), .Title = LoadResText(text::kTitle), .Icon = icon});
}

bool AskYesNo(Desktop& desktop, Text body, Icon icon) {
  return desktop.Show({.Body = std::move(body),
                       .Title = LoadResText(text::kTitle),
                       .Icon = icon,
                       .Buttons = Buttons::kYesNo}) == Answer::kYes;
}

bool RefuseLocked(Desktop& desktop, const orim::Package& package) {
  if (!package.Element().Locked()) return false;
  ShowMessage(desktop, LoadResText(text::kPackageLocked), Icon::kExclamation);
  return true;
}

}  // namespace kestrune
