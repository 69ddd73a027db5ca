#include "standins/play/Script.h"

#include <algorithm>
#include <utility>

namespace kestrune::play {

namespace {

constexpr TextView kVerbs[] = {
    u"form NAME",         u"press NAME",   u"select NAME TEXT+",     u"doubleclick NAME TEXT",
    u"type NAME TEXT",    u"drop NAME",    u"menu NAME NAME",        u"close",
    u"input TEXT",        u"input cancel", u"answer Yes|No|OK TEXT", u"clipboard TEXT",
    u"wait until closed", u"wait",
};
constexpr TextView kConditionVerbs[] = {u"expect ", u"wait until "};
constexpr TextView kConditions[] = {
    u"NAME enabled|disabled|visible|hidden",
    u"NAME TEXT",
    u"NAME selected TEXT*",
    u"NAME lines TEXT*",
    u"NAME row TEXT+",
};

constexpr std::pair<char16_t, char16_t> kEscapes[] = {
    {u'"', u'"'}, {u'\\', u'\\'}, {u'n', u'\n'}, {u't', u'\t'}};

struct Word {
  Text value;
  bool is_text = false;
};
using Words = std::vector<Word>;

bool IsBlank(char16_t c) {
  return c <= u' ';
}

/// What is wrong with the line at hand.
struct Fault {
  Text what;
};

/// Cuts one line into words; throws Fault.
class LineReader {
 public:
  explicit LineReader(TextView line) : rest_(line) {}

  Words Read() {
    Words words;
    while (SkipBlanks()) words.push_back(rest_.front() == u'"' ? Word{ReadText(), true} : Word{ReadName()});
    return words;
  }

 private:
  bool SkipBlanks() {
    rest_ = Trim(rest_);
    return !rest_.empty() && rest_.front() != u'#';
  }

  Text ReadName() {
    const auto end = std::find_if(rest_.begin(), rest_.end(),
                                  [](char16_t c) { return IsBlank(c) || c == u'"' || c == u'#'; });
    const auto length = static_cast<std::size_t>(end - rest_.begin());
    Text name(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return name;
  }

  Text ReadText() {
    Text text;
    while (Next(), Peek() != u'"') text += Peek() == u'\\' ? ReadEscaped() : Peek();
    Next();
    if (!rest_.empty() && !IsBlank(rest_.front()) && rest_.front() != u'#')
      throw Fault{u"a text and what follows it need a blank between"};
    return text;
  }

  char16_t ReadEscaped() {
    Next();
    for (const auto& [written, meant] : kEscapes)
      if (Peek() == written) return meant;
    throw Fault{u"there is no escape \\" + Text(1, Peek())};
  }

  void Next() { rest_.remove_prefix(1); }
  char16_t Peek() const {
    if (rest_.empty()) throw Fault{u"the text has no closing quotation mark"};
    return rest_.front();
  }

  TextView rest_;
};

bool Fits(TextView element, const Word& word) {
  if (element.starts_with(u"TEXT")) return word.is_text;
  if (word.is_text) return false;
  if (element == u"NAME") return true;
  const auto choices = Split(element, u"|");
  return std::find(choices.begin(), choices.end(), word.value) != choices.end();
}

bool Fits(const Text& form, const Words& words) {
  std::size_t at = 0;
  for (const Text& element : Split(form, u" ")) {
    const bool is_repeated = element.ends_with(u'+') || element.ends_with(u'*');
    const std::size_t start = at;
    while (at < words.size() && Fits(element, words[at]) && (at == start || is_repeated)) ++at;
    if (at == start && !element.ends_with(u'*')) return false;
  }
  return at == words.size();
}

std::vector<Text> AllForms(const std::vector<Text>& commands) {
  std::vector<Text> forms(std::begin(kVerbs), std::end(kVerbs));
  for (const TextView verb : kConditionVerbs)
    for (const TextView condition : kConditions) forms.push_back(Text(verb).append(condition));
  forms.insert(forms.end(), commands.begin(), commands.end());
  return forms;
}

void RequireStatement(const Words& words, const std::vector<Text>& forms) {
  Text ways;
  for (const Text& form : forms) {
    if (Fits(form, words)) return;
    if (Split(form, u" ").front() == words.front().value) ways += (ways.empty() ? u"" : u", or ") + form;
  }
  if (words.front().is_text || ways.empty()) throw Fault{u"there is no verb " + words.front().value};
  throw Fault{u"it is written " + ways};
}

Statement ToStatement(Words words) {
  Statement statement;
  statement.verb = std::move(words.front().value);
  for (auto word = words.begin() + 1; word != words.end(); ++word)
    (word->is_text ? statement.texts : statement.names).push_back(std::move(word->value));
  return statement;
}

}  // namespace

ScriptError::ScriptError(const Text& file, std::size_t line, TextView source, TextView what)
    : runtime_error(ToUtf8(file + u":" + ToText(static_cast<long long>(line)) + u": " + Text(what) +
                           (source.empty() ? u"" : u": ") + Text(source))) {}

Script ParseScript(const Text& file, TextView source, const std::vector<Text>& commands) {
  const auto forms = AllForms(commands);
  Script script{file, {}};
  std::size_t number = 0;
  for (const Text& line : Split(source, u"\n")) {
    ++number;
    try {
      Words words = LineReader(line).Read();
      if (words.empty()) continue;
      RequireStatement(words, forms);
      Statement& statement = script.statements.emplace_back(ToStatement(std::move(words)));
      statement.line = number;
      statement.source = Trim(line);
    } catch (const Fault& fault) {
      throw ScriptError(file, number, Trim(line), fault.what);
    }
  }
  return script;
}

Text Quoted(TextView text) {
  Text quoted = u"\"";
  for (const char16_t c : text) {
    if (c == u'\r') continue;  // a line break is one sign in a script
    const auto escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                     [c](const auto& each) { return each.second == c; });
    if (escape != std::end(kEscapes)) quoted += u'\\';
    quoted += escape != std::end(kEscapes) ? escape->first : c;
  }
  return quoted + u'"';
}

}  // namespace kestrune::play
