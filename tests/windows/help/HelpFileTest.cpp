// The help file fits the add-in: what the code opens is there, what is there can be reached, and every
// message is explained.
#include <gtest/gtest.h>
#include <regex>
#include <set>
// clang-format off
#include <windows.h>
#include <htmlhelp.h>  // needs the one above
// clang-format on

#include "platform/Files.h"
#include "platform/com/ComText.h"
#include "tests/windows/help/CompiledHelp.h"

namespace kestrune::testing {
namespace {

const Text kHelpFile = u"" KESTRUNE_HELP;
const Text kSources = u"" KESTRUNE_SOURCE_DIR u"/";

std::vector<std::smatch> Matches(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern);
  return {std::sregex_iterator(text.begin(), text.end(), regex), std::sregex_iterator()};
}

/// What the first group of `pattern` matches.
std::set<std::string> Found(const std::string& text, const std::string& pattern) {
  std::set<std::string> found;
  for (const std::smatch& match : Matches(text, pattern)) found.insert(match[1]);
  return found;
}

/// The context numbers in a source: those given to forms, and the constants given to messages and to the
/// desktop.
std::set<int> ContextsIn(const std::string& source) {
  std::set<int> contexts;
  for (const std::string& value : Found(source, "HelpContextID = ([^;]+);"))
    for (const std::string& number : Found(value, "\\b(\\d+)\\b")) contexts.insert(std::stoi(number));
  for (const std::string& name : Found(source, "(?:\\.HelpContext = |ShowHelp\\()(k\\w+)")) {
    const auto values = Found(source, "constexpr int " + name + " = (\\d+);");
    EXPECT_EQ(values.size(), 1u) << "the number behind " << name << " is not in its file";
    for (const std::string& number : values) contexts.insert(std::stoi(number));
  }
  return contexts;
}

std::set<int> ContextsOfTheAddIn() {
  std::set<int> contexts;
  for (const char16_t* room : {u"addin/", u"import/", u"documents/", u"options/", u"doors/", u"common/"})
    for (const Text& file : ListFolder(kSources + room))
      if (file.ends_with(u".cpp")) contexts.merge(ContextsIn(ReadFile(kSources + room + file)));
  return contexts;
}

/// HTML as a reader sees it: without tags, entities resolved, white space made one blank.
std::string Seen(std::string html) {
  const std::pair<const char*, const char*> steps[] = {
      {"<var>[^<]*</var>", "%s"}, {"<[^>]*>", ""}, {"&lt;", "<"}, {"&gt;", ">"},
      {"&quot;", "\""},           {"&amp;", "&"},  {"\\s+", " "}, {"^ | $", ""}};
  for (const auto& [pattern, by] : steps) html = std::regex_replace(html, std::regex(pattern), by);
  return html;
}

/// A text of the string table, which writes a line break in two ways, as one line.
std::string OneLine(const std::string& text) {
  return Seen(
      std::regex_replace(std::regex_replace(text, std::regex(R"(\\n)"), " "), std::regex("&"), "&amp;"));
}

class HelpFileTest : public ::testing::Test {
 protected:
  /// The pages in the table of contents.
  std::set<std::string> Pages() const {
    return Found(help_.Read("contents.hhc"), "name=\"Local\" value=\"([^\"]+)\"");
  }

  const CompiledHelp help_{kHelpFile};
};

TEST_F(HelpFileTest, EveryContextOfTheCodeLeadsToAPage) {
  const auto wanted = ContextsOfTheAddIn();
  EXPECT_GE(wanted.size(), 7u);
  const auto contexts = help_.Contexts();
  for (const int context : wanted) EXPECT_TRUE(contexts.contains(context)) << context << " has no page";
  for (const auto& [context, page] : contexts) {
    EXPECT_TRUE(wanted.contains(context)) << context << " is asked for by nobody";
    EXPECT_TRUE(help_.Has(page)) << context << " leads to " << page;
    HWND window =
        HtmlHelpA(nullptr, ToUtf8(kHelpFile).c_str(), HH_HELP_CONTEXT, static_cast<DWORD_PTR>(context));
    EXPECT_NE(window, nullptr) << context << " does not open";
  }
  EXPECT_EQ(HtmlHelpA(nullptr, ToUtf8(kHelpFile).c_str(), HH_HELP_CONTEXT, 1), nullptr);
}

TEST_F(HelpFileTest, EveryPageOfTheSourceIsInTheContents) {
  std::set<std::string> sources;
  for (const Text& file : ListFolder(kSources + u"docs/help"))
    if (file.ends_with(u".html")) sources.insert(ToUtf8(file));
  EXPECT_EQ(Pages(), sources);
  EXPECT_GE(Pages().size(), 10u);
}

TEST_F(HelpFileTest, EveryLinkLeadsSomewhere) {
  for (const std::string& page : Pages()) {
    const std::string html = help_.Read(page);
    EXPECT_FALSE(html.empty()) << page;
    for (const std::string& link : Found(html, "(?:href|src)=\"([^\"]+)\"")) {
      const auto hash = link.find('#');
      const std::string target = hash == 0 ? page : link.substr(0, hash);
      EXPECT_TRUE(help_.Has(target)) << page << " refers to " << link;
      if (hash == std::string::npos) continue;
      EXPECT_TRUE(Found(help_.Read(target), "id=\"([^\"]+)\"").contains(link.substr(hash + 1)))
          << page << " refers to " << link;
    }
  }
  for (const std::string& page : Found(help_.Read("index.hhk"), "name=\"Local\" value=\"([^\"]+)\""))
    EXPECT_TRUE(help_.Has(page)) << "the index refers to " << page;
}

TEST_F(HelpFileTest, TheFullTextCanBeSearched) {
  EXPECT_TRUE(help_.Has("$FIftiMain"));
  EXPECT_FALSE(help_.Read("index.hhk").empty());
}

TEST_F(HelpFileTest, EveryMessageHasItsEntryAndEveryEntryItsMessage) {
  std::map<int, std::string> messages;
#define STRING(id, name, text) messages[id] = OneLine(text);
#define LABEL(id, name, text)
#include "common/resources/strings.def"
#undef STRING
  std::map<int, std::string> entries;
  const std::string page = help_.Read("messages.html");
  for (const std::smatch& entry :
       Matches(page, "<dt id=\"m(\\d+)\">([^]*?)</dt>\\s*<dd>[^]*?Cause[^]*?Remedy[^]*?</dd>"))
    EXPECT_TRUE(entries.emplace(std::stoi(entry[1]), Seen(entry[2])).second)
        << entry[1] << " stands there twice";
  EXPECT_EQ(Matches(page, "<dt").size(), entries.size()) << "an entry lacks its id, its cause or its remedy";
  for (const auto& [id, text] : messages)
    EXPECT_EQ(entries[id], text) << "docs/help/messages.html must have an entry m" << id
                                 << "; what is no message is a LABEL in common/resources/strings.def";
  for (const auto& [id, text] : entries)
    EXPECT_TRUE(messages.contains(id)) << "no message: " << id << ", " << text;
}

}  // namespace
}  // namespace kestrune::testing
