// "Locate in DOORS" from an element of the linked package.
#include "tests/addin/LinkedPackage.h"

namespace kestrune {
namespace {

using testing::LinkedPackage;

struct LocateTest : LinkedPackage {
  LocateTest() { module.AddView(u"All", {}); }

  std::int32_t ElementOf(const Text& identifier) const {
    for (const auto& item : model.Tree(package_id))
      for (const auto& tag : item.TaggedValues)
        if (tag.Name == u"Object Identifier" && tag.Value == identifier) return item.Id;
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

TEST_F(LocateTest, IsSilentWhereThereIsNothingToLocate) {
  const auto nothing = [this](const char* why) {
    EXPECT_EQ(Locate(u"R1"), "") << why;
    model.SelectPackage(package_id);
  };
  Map({u"Object Heading --> Alias"});
  nothing("the number is not mapped");
  Map({u"Absolute Number --> Colour"});
  Messages();
  nothing("the number goes to no field");
  Map({u"Absolute Number --> Alias"});
  EXPECT_EQ(Click(), "") << "a package is selected, no element";

  const orim::Element element = repository.ElementByID(ElementOf(u"R1"));
  for (const char16_t* number : {u"", u"1~2"}) {
    element.SetField(u"Alias", number);
    element.Save();
    nothing("the element has lost its number");
  }

  SaveLinkFile(platform, Guid(), u"/P/Gone");
  EXPECT_EQ(Locate(u"R2"), "") << "the module is gone";

  desktop.answer_to_questions = Answer::kYes;
  add_in.Plexa_Disconnect(repository, Guid());
  Messages();
  EXPECT_EQ(Locate(u"R2"), "") << "the package is not linked";

  doors.SetPhase(standins::DoorsPhase::kNotRunning);
  EXPECT_EQ(Locate(u"R2"), "") << "DOORS is not running and the user will not wait";
}

TEST_F(LocateTest, IsSilentWhenDoorsDoesNotFindTheObject) {
  const orim::Element element = repository.ElementByID(ElementOf(u"R1"));
  const orim::TaggedValue number = element.TaggedValues().Find(u"Absolute Number");
  number.SetValue(u"99");
  number.Save();
  EXPECT_EQ(Locate(u"R1"), "/P/M Standard view 0");
}

}  // namespace
}  // namespace kestrune
