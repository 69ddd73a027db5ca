#include <gtest/gtest.h>

#include "standins/play/Script.h"

namespace kestrune::play {
namespace {

const std::vector<Text> kCommands = {u"connect", u"package TEXT", u"doors gone|ready", u"load TEXT TEXT"};

/// Line number, verb, names and texts of each statement, as one line of text.
std::string Dump(const Script& script) {
  std::string dump;
  for (const Statement& statement : script.statements) {
    dump += (dump.empty() ? "" : "; ") + std::to_string(statement.line) + " " + ToUtf8(statement.verb);
    for (const Text& name : statement.names) dump += " " + ToUtf8(name);
    for (const Text& text : statement.texts) dump += " " + ToUtf8(Quoted(text));
  }
  return dump;
}

TEST(ScriptTest, ReadsWhatIsWritten) {
  const struct {
    const char16_t* source;
    const char* dump;
  } cases[] = {
      {u"", ""},
      {u"\n  # nothing here\r\n\t\n", ""},
      {u"# first\r\n\r\n   connect  # to DOORS\r\nclose", "3 connect; 4 close"},
      {u"package \"a # b\"#c", "1 package \"a # b\""},
      {u"clipboard \"\"", "1 clipboard \"\""},
      {u"clipboard \"say \\\"\\\\\\n\\t\\\" \u00e4\"", "1 clipboard \"say \\\"\\\\\\n\\t\\\" \u00e4\""},
  };
  for (const auto& each : cases) EXPECT_EQ(Dump(ParseScript(u"x.play", each.source, kCommands)), each.dump);
}

TEST(ScriptTest, SaysWhereAndWhyAndHowItIsWritten) {
  const struct {
    const char16_t* source;
    const char* failure;
  } cases[] = {
      {u"connect\n\n  jump cmdOK  ", "x.play:3: there is no verb jump: jump cmdOK"},
      {u"\"connect\"", "x.play:1: there is no verb connect: \"connect\""},
      {u"press", "x.play:1: it is written press NAME: press"},
      {u"press cmdOK cmdCancel", "x.play:1: it is written press NAME: press cmdOK cmdCancel"},
      {u"select \"a\" lst", "x.play:1: it is written select NAME TEXT+: select \"a\" lst"},
      {u"doors open", "x.play:1: it is written doors gone|ready: doors open"},
      {u"answer Maybe \"?\"", "x.play:1: it is written answer Yes|No|OK TEXT: answer Maybe \"?\""},
      {u"input", "x.play:1: it is written input TEXT, or input cancel: input"},
      {u"expect cmdOK",
       "x.play:1: it is written expect NAME enabled|disabled|visible|hidden, or expect NAME TEXT, or expect "
       "NAME selected TEXT*, or expect NAME lines TEXT*, or expect NAME row TEXT+: expect cmdOK"},
      {u"close\npackage \"a", "x.play:2: the text has no closing quotation mark: package \"a"},
      {u"package \"a\\", "x.play:1: the text has no closing quotation mark: package \"a\\"},
      {u"package \"\\x\"", "x.play:1: there is no escape \\x: package \"\\x\""},
      {u"load \"a\"\"b\"", "x.play:1: a text and what follows it need a blank between: load \"a\"\"b\""},
  };
  for (const auto& each : cases) {
    try {
      ParseScript(u"x.play", each.source, kCommands);
      ADD_FAILURE() << "was read: " << ToUtf8(each.source);
    } catch (const ScriptError& error) {
      EXPECT_STREQ(error.what(), each.failure);
    }
  }
}

}  // namespace
}  // namespace kestrune::play
