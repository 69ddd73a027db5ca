#include "standins/host-model/QueryXml.h"

#include <algorithm>

namespace kestrune::standins {

namespace {

struct Tags {
  Text open;
  Text close;
};

[[noreturn]] void Refuse(Text why) {
  throw AutomationError(error::kBase, u"Repository.Query", std::move(why));
}

bool IsAsciiLetter(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
}

bool IsXmlName(TextView name) {
  const auto may_follow = [](char16_t c) { return IsAsciiLetter(c) || (c >= u'0' && c <= u'9'); };
  return !name.empty() && IsAsciiLetter(name[0]) && std::all_of(name.begin(), name.end(), may_follow);
}

Text Spelled(const Text& name, ColumnSpelling spelling) {
  if (spelling == ColumnSpelling::kUpper) return AsciiUpper(name);
  if (spelling == ColumnSpelling::kLower) return AsciiLower(name);
  return name;
}

std::vector<Tags> TagsOf(const Statement& rows, ColumnSpelling spelling) {
  std::vector<Tags> tags;
  for (int column = 0; column < rows.ColumnCount(); ++column) {
    const Text name = Spelled(rows.ColumnName(column), spelling);
    if (!IsXmlName(name)) Refuse(u"The column \"" + name + u"\" needs a name of letters and digits (AS)");
    tags.push_back({u"<" + name + u">", u"</" + name + u">"});
  }
  return tags;
}

bool IsHighSurrogate(char16_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char16_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}

/// True for what is copied as it is; surrogates are looked at more closely. Most text passes the first test.
bool IsPlain(char16_t c) {
  if (c > u'>' && c < 0xD800) return true;
  if (c < 0x20) return c == u'\t' || c == u'\n';
  return c != u'&' && c != u'<' && c != u'>' && (c < 0xD800 || (c > 0xDFFF && c < 0xFFFE));
}

/// What stands for the one character that is not plain; nothing for what XML cannot hold. A carriage return
/// as itself would be lost: parsers read line ends as line feeds.
TextView Reference(char16_t c) {
  switch (c) {
    case u'&':
      return u"&amp;";
    case u'<':
      return u"&lt;";
    case u'>':
      return u"&gt;";
    case u'\r':
      return u"&#xD;";
    default:
      return {};
  }
}

void AppendEscaped(Text& xml, TextView value) {
  std::size_t i = 0;
  while (i < value.size()) {
    const auto end = std::find_if_not(value.begin() + i, value.end(), [](char16_t c) { return IsPlain(c); }) -
                     value.begin();
    xml.append(value.substr(i, end - i));
    i = static_cast<std::size_t>(end);
    if (i == value.size()) return;
    if (IsHighSurrogate(value[i]) && i + 1 < value.size() && IsLowSurrogate(value[i + 1])) {
      xml.append(value.substr(i, 2));
      i += 2;
    } else {
      xml.append(Reference(value[i++]));
    }
  }
}

Statement PrepareSelect(Database& database, TextView sql) {
  Statement rows = database.PrepareOnce(ToUtf8(sql));
  if (!rows.IsReadOnly()) Refuse(u"A query must not write");
  // What is left besides are statements that change the connection: BEGIN, ATTACH, PRAGMA.
  constexpr TextView kSelect = u"SELECT";
  if (AsciiUpper(Trim(sql).substr(0, kSelect.size())) != kSelect) Refuse(u"Only a SELECT can be queried");
  return rows;
}

/// A large answer that outgrows its memory again and again is copied, and touches twice as much, each time. Room that is
/// not used costs nothing but addresses.
void MakeRoom(Text& xml) {
  constexpr std::size_t kLarge = std::size_t(1) << 20;                           // units
  constexpr std::size_t kRoom = std::size_t(1) << (sizeof(void*) > 4 ? 29 : 0);  // units
  if (xml.size() > kLarge && xml.capacity() < kRoom) xml.reserve(kRoom);
}

}  // namespace

Text QueryXml(Database& database, TextView sql, ColumnSpelling spelling) {
  Statement rows = PrepareSelect(database, sql);
  const std::vector<Tags> tags = TagsOf(rows, spelling);
  Text xml = u"<ORIMDATA><Dataset_0><Data>";
  while (rows.Step()) {
    xml += u"<Row>";
    for (int column = 0; column < static_cast<int>(tags.size()); ++column) {
      if (rows.IsNull(column)) continue;
      xml += tags[column].open;
      AppendEscaped(xml, rows.View(column));
      xml += tags[column].close;
    }
    xml += u"</Row>";
    MakeRoom(xml);
  }
  xml += u"</Data></Dataset_0></ORIMDATA>";
  return xml;
}

}  // namespace kestrune::standins
