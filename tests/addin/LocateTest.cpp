// "Locate in DOORS" from an element of the linked package.
#include "tests/addin/LinkedPackage.h"

namespace kestrune {
namespace {

using testing::LinkedPackage;

struct LocateTest : LinkedPackage {
  LocateTest() { module.AddView(u"All", {}); }

  std::int32_t ElementOf(const Text& identifier) const {
    for (const auto& item : model.Tree(package_id))
      for (const auto& tag : item.tagged_values)
        if (tag.name == u"Object Identifier" && tag.value == identifier) return item.id;
    ADD_FAILURE() << "no element";
    return 0;
  }

  /// What DOORS shows after a click on the element: its view and object, "" when nothing is open.
  std::string Locate(const Text& identifier) {
    model.SelectElement(ElementOf(identifier));
    return Click();
  }
  std::string Click() {
    EndToEnd::Click(text::kMenuLocate);
    EXPECT_TRUE(Messages().empty());
    std::string shown;
    for (const auto& open : doors.OpenModules())
      shown += ToUtf8(open.path + u" " + open.view) + " " + std::to_string(open.scrolled_to);
    return shown;
  }

  Text LastLine() const { return model.OutputLines(u"DOORS").back().line; }

  void Map(const std::vector<Text>& rules) {
    mapping = rules;
    EditOptions();
    Import();
    doors.UserClosesAll();
  }
};

TEST_F(LocateTest, FollowsTheNumberWhereverTheRulePutIt) {
  for (const auto* rule : {u"Absolute Number --> (Tagged Value)", u"Absolute Number --> Alias",
                           u"Absolute Number --> Name", u"Absolute Number --> KeyWords"}) {
    Map({rule});
    EXPECT_EQ(Locate(u"R2"), "/P/M Standard view 2") << ToUtf8(rule);
    EXPECT_EQ(Locate(u"R1"), "/P/M Standard view 1") << ToUtf8(rule);
  }
}

TEST_F(LocateTest, ShowsTheViewOfTheImport) {
  view = u"All";
  EditOptions();
  EXPECT_EQ(Locate(u"R2"), "/P/M All 2");
}

TEST_F(LocateTest, SaysInTheOutputTabWhatWasMissing) {
  const auto missing = [this](const Text& why) {
    EXPECT_EQ(Locate(u"R1"), "") << ToUtf8(why);
    EXPECT_EQ(LastLine(), u"Locate in DOORS: " + why);
    model.SelectPackage(package_id);
  };
  const Text not_mapped =
      u"the attribute \"Absolute Number\" is not mapped. Map it in the options of the package and import "
      u"again.";
  Map({u"Object Heading --> Alias"});
  missing(not_mapped);
  Map({u"Object Heading --> Name"});
  missing(not_mapped);
  Map({u"Absolute Number --> Colour"});
  Messages();
  missing(
      u"the rule \"Absolute Number --> Colour\" names no field of an element. Mend it in the options of the "
      u"package and import again.");
  Map({u"Absolute Number --> Alias"});
  EXPECT_EQ(Click(), "");
  EXPECT_EQ(LastLine(), u"Locate in DOORS: no element is selected.");

  const orim::Element element = repository.ElementByID(ElementOf(u"R1"));
  const auto store = [&element](const Text& number) {
    element.SetField(u"Alias", number);
    element.Save();
  };
  for (const char16_t* number : {u"", u"1~2"}) {
    store(number);
    missing(
        u"the element \"" + element.Name() +
        u"\" holds no absolute number where the rule \"Absolute Number --> Alias\" puts it. Import again.");
  }
  store(u"1");

  SaveLinkFile(platform, Guid(), u"/P/Gone");
  missing(u"Module '/P/Gone' not found.");
  SaveLinkFile(platform, Guid(), u"/P/~");
  missing(FormatResText(text::kFieldSeparatorInside, {u"/P/~"}));
  RemoveFile(GetLinkFilePath(platform, Guid()));
  missing(u"the package \"" + Package().Name() + u"\" is not linked to a DOORS module.");

  desktop.answer_to_questions = Answer::kYes;
  add_in.Plexa_Disconnect(repository, Guid());
  Messages();
  missing(u"the package \"" + Package().Name() +
          u"\" has no import options. Open them once, with \"Options\" in the menu of the linked package.");

  doors.SetPhase(standins::DoorsPhase::kNotRunning);
  missing(u"there is no connection to DOORS.");
}

TEST_F(LocateTest, SaysWhenDoorsDoesNotFindTheObject) {
  const orim::Element element = repository.ElementByID(ElementOf(u"R1"));
  const orim::TaggedValue number = element.TaggedValues().Find(u"Absolute Number");
  number.SetValue(u"99");
  number.Save();
  EXPECT_EQ(Locate(u"R1"), "/P/M Standard view 0");
  EXPECT_EQ(LastLine(), u"Locate in DOORS: Object ID '99' not found in DOORS Module.");
}

}  // namespace
}  // namespace kestrune
