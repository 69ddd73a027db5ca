#include "bench/GeneratedModule.h"

#include <algorithm>
#include <fstream>

#include "platform/Files.h"

namespace kestrune::bench {

namespace {

// The attributes by their place in the export.
enum : std::size_t {
  kNumber,
  kIdentifier,
  kOutline,
  kLevel,
  kText,
  kShortText,
  kCreatedBy,
  kCreatedOn,
  kModifiedOn,
  kHeading,
  kParent,
  kRichText,
  kStatus,
  kPriority,
  kComplexity,
  kOwner,
  kRelease,
  kVerification,
  kRationale,
  kSource,
  kSafetyClass,
  kReviewDate,
  kReviewComment,
  kTestCases,
  kCost,
  kAllocatedTo,
  kKeywords,
  kDrawing,
};

constexpr std::array<const char*, kFixedAttributes + kOwnAttributes> kNames = {
    "Absolute Number", "Object Identifier", "Object Number",
    "Object Level",    "Object Text",       "Object Short Text",
    "Created By",      "Created On",        "Last Modified On",
    "Object Heading",  "Object Parent",     "Object Text (Formatted)",
    "Status",          "Priority",          "Complexity",
    "Owner",           "Release",           "Verification Method",
    "Rationale",       "Source Document",   "Safety Class",
    "Review Date",     "Review Comment",    "Test Cases",
    "Estimated Cost",  "Allocated To",      "Search Words",
    "Drawing",
};

constexpr const char* kPrefix = "REQ-";
constexpr int kHeadingEvery = 5;  // objects

/// The same numbers for the same object and attribute wherever they are asked for.
class Dice {
 public:
  Dice(int object, std::size_t attribute)
      : state_(static_cast<std::uint64_t>(object) * 0x9E3779B97F4A7C15u + attribute * 0xD1B54A32D192ED03u) {}

  std::size_t Below(std::size_t limit) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::size_t>(state_ >> 33) % limit;
  }
  template <std::size_t n>
  const char* Of(const std::array<const char*, n>& choices) {
    return choices[Below(n)];
  }

 private:
  std::uint64_t state_;
};

constexpr std::array kWords = {
    "system", "shall",  "operator",  "pressure", "valve",  "within",   "seconds", "the",      "of",
    "a",      "report", "alarm",     "when",     "exceed", "limit",    "safe",    "state",    "pump",
    "sensor", "and",    "interface", "message",  "data",   "maintain", "during",  "start-up", "interlock",
    "not",    "be",     "recorded",  "before",   "manual", "override", "control", "room",     "temperature"};
constexpr std::array kForeignWords = {"Prüfung", "Druckbehälter", "température", "≤ 5 µs", "§ 4.2", "配管"};
constexpr std::array kPeople = {"Adams", "Brandt", "Costa", "Dupont", "Eriksen", "Ferrari", "Garcia"};
constexpr std::array kStates = {"Proposed", "In Review", "Accepted", "Implemented", "Verified"};
constexpr std::array kGrades = {"High", "Medium", "Low"};
constexpr std::array kMethods = {"Test", "Analysis", "Inspection", "Demonstration"};

std::string Prose(Dice& dice, std::size_t words) {
  const bool is_foreign = dice.Below(20) == 0;
  std::string text = "The";
  for (std::size_t i = 1; i < words; ++i) {
    text += i % 60 == 0 ? ".\nThe" : i % 15 == 0 ? ". The" : "";
    text += ' ';
    text += is_foreign && i % 8 == 0 ? dice.Of(kForeignWords) : dice.Of(kWords);
  }
  return text += dice.Below(10) == 0 ? " (x < 3 & y > 4)." : ".";
}

std::string Date(Dice& dice) {
  return std::to_string(1 + dice.Below(28)) + " March " + std::to_string(2001 + dice.Below(20));
}

std::string InBraces(const std::string& text) {
  const auto first_word = text.find(' ');
  return "{\\b " + text.substr(0, first_word) + "}" + text.substr(first_word);
}

// Of five objects the first is a heading, the next three are
// requirements below it, the last a detail of the last one.
bool IsHeading(int number) {
  return number % kHeadingEvery == 1;
}
bool IsDetail(int number) {
  return number % kHeadingEvery == 0;
}

/// The depth at which a heading wants to stand: chapters, sections, subsections.
std::size_t WantedLevel(int number) {
  return number % 100 == 1 ? 1 : number % 20 == 1 ? 2 : 3;
}

/// Where the objects stand, one after the other. DOORS counts headings 1, 2, 3 below their parent and the
/// others apart from them, as 2.1-0.1.
class Outline {
 public:
  /// Sets level, parent and outline number.
  void Place(GeneratedObject& object) {
    const bool is_heading = IsHeading(object.number);
    while (!IsDetail(object.number) && path_.size() > 1 && !IsHeading(path_.back().number)) path_.pop_back();
    if (is_heading) path_.resize(std::min(WantedLevel(object.number), path_.size()));
    object.level = static_cast<int>(path_.size());
    object.parent = path_.back().number;
    object.values[kOutline] = NextBelow(path_.back(), is_heading);
    path_.push_back({object.number, object.values[kOutline]});
  }

 private:
  struct Entry {
    int number = 0;
    std::string outline;
    int headings = 0;  // below it
    int others = 0;
  };

  static std::string NextBelow(Entry& parent, bool is_heading) {
    const bool is_top = parent.number == 0;
    if (is_heading) return parent.outline + (is_top ? "" : ".") + std::to_string(++parent.headings);
    return parent.outline + (IsHeading(parent.number) ? "-0." : ".") + std::to_string(++parent.others);
  }

  std::vector<Entry> path_ = std::vector<Entry>(1);  // from the module itself down
};

void FillText(GeneratedObject& object, Edition edition) {
  auto& values = object.values;
  const bool is_heading = IsHeading(object.number);
  Dice dice(object.number, kText);
  values[kText] = is_heading ? "" : Prose(dice, 15 + dice.Below(50));
  values[kHeading] = is_heading ? Prose(dice, 4) : "";
  if (edition == Edition::kNext && object.number % 100 == 50) {
    values[kText] += " This has been added.";
    values[kStatus] = "Changed";
  }
  values[kRichText] = is_heading ? "" : InBraces(values[kText]);
}

void FillOwnValues(GeneratedObject& object) {
  auto& values = object.values;
  Dice dice(object.number, kOwner);
  const auto number = [&dice](std::size_t limit) { return std::to_string(1 + dice.Below(limit)); };
  values[kCreatedBy] = dice.Of(kPeople);
  values[kCreatedOn] = Date(dice);
  values[kModifiedOn] = Date(dice);
  values[kStatus] = dice.Of(kStates);
  values[kPriority] = dice.Of(kGrades);
  values[kComplexity] = dice.Of(kGrades);
  values[kOwner] = dice.Of(kPeople);
  values[kRelease] = "R" + number(5) + "." + number(9);
  values[kVerification] = dice.Of(kMethods);
  values[kRationale] = dice.Below(2) == 0 ? Prose(dice, 8 + dice.Below(30)) : "";
  values[kSource] = "Tender document " + number(40) + ", page " + number(300);
  values[kSafetyClass] = dice.Below(3) == 0 ? "SC" + number(3) : "";
  values[kReviewDate] = dice.Below(3) == 0 ? Date(dice) : "";
  values[kReviewComment] = dice.Below(100) == 0 ? Prose(dice, 400 + dice.Below(600))
                           : dice.Below(5) == 0 ? Prose(dice, 12)
                                                : "";
  values[kTestCases] = "TC-" + number(9000) + ", TC-" + number(9000);
  values[kCost] = dice.Below(2) == 0 ? number(5000) : "";
  values[kAllocatedTo] = dice.Of(kPeople) + std::string(" (team ") + number(12) + ")";
  values[kKeywords] = dice.Of(kWords) + std::string(", ") + dice.Of(kWords);
  values[kDrawing] = dice.Below(4) == 0 ? "DWG-" + number(900) + "-" + number(90) : "";
}

void WriteEscaped(std::ostream& out, const std::string& value) {
  for (const char c : value) {
    switch (c) {
      case '&':
        out << "&amp;";
        break;
      case '<':
        out << "&lt;";
        break;
      case '>':
        out << "&gt;";
        break;
      default:
        out << c;
    }
  }
}

void WriteObject(std::ostream& out, const GeneratedObject& object) {
  out << "<Object>";
  for (std::size_t i = 0; i < object.values.size(); ++i) {
    if (object.values[i].empty()) continue;
    out << "<a" << i << '>';
    WriteEscaped(out, object.values[i]);
    out << "</a" << i << '>';
  }
  out << "</Object>";
}

/// The file that the export script has DOORS write.
void WriteRequirements(const Text& path, int count, Edition edition) {
  std::ofstream out(ToPath(path), std::ios::binary);
  out << "<?xml version='1.0' encoding='UTF-8'?>\r\n<DoorsModule><Attributes>";
  for (std::size_t i = 0; i < kNames.size(); ++i)
    out << "<Attribute Name=\"" << kNames[i] << "\" ID=\"" << i << "\"/>";
  out << "</Attributes><Objects>";
  ForEachObject(count, edition, [&out](const GeneratedObject& object) { WriteObject(out, object); });
  out << "</Objects></DoorsModule>\r\n";
  out.close();
  if (!out) throw std::runtime_error("cannot write " + ToUtf8(path));
}

/// The ids of the module's attribute definitions, by their place in the export; 0 for what DOORS works out.
std::array<std::int64_t, kNames.size()> MakeAttributes(standins::Database& sql, std::int64_t module) {
  for (std::size_t i = kFixedAttributes; i < kNames.size(); ++i)
    sql.Prepare("INSERT INTO attribute (module, position, name) VALUES (?, ?, ?)", module, i,
                FromUtf8(kNames[i]))
        .Run();
  std::array<std::int64_t, kNames.size()> ids{};
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    auto row =
        sql.Prepare("SELECT id FROM attribute WHERE module = ? AND name = ?", module, FromUtf8(kNames[i]));
    if (row.Step()) ids[i] = row.Int64(0);
  }
  return ids;
}

}  // namespace

void ForEachObject(int count, Edition edition, const std::function<void(const GeneratedObject&)>& visit) {
  Outline outline;
  for (int number = 1; number <= count; ++number) {
    GeneratedObject object{.number = number};
    outline.Place(object);
    object.values[kNumber] = std::to_string(number);
    object.values[kIdentifier] = kPrefix + std::to_string(number);
    object.values[kLevel] = std::to_string(object.level);
    object.values[kParent] = object.parent == 0 ? "" : kPrefix + std::to_string(object.parent);
    FillOwnValues(object);
    FillText(object, edition);
    visit(object);
  }
}

const Module kRequirements{
    "requirements",
    {u"Status --> Status", u"Priority --> Priority", u"Complexity --> Difficulty", u"Owner --> Author",
     u"Verification Method --> (Tagged Value)", u"Rationale --> (Tagged Value)",
     u"Safety Class --> (Tagged Value)", u"Review Comment --> (Tagged Value)"},
    WriteRequirements,
};

void FillDatabase(standins::DoorsDatabase& database, int count) {
  standins::Database& sql = database.Sql();
  standins::Transaction transaction(sql);
  const auto make_item = [&sql](std::int64_t parent, TextView type, TextView name) {
    sql.Prepare("INSERT INTO item (parent, type, name, prefix) VALUES (?, ?, ?, ?)", parent, type, name,
                FromUtf8(kPrefix))
        .Run();
    return sql.LastInsertId();
  };
  const auto module =
      make_item(make_item(standins::DoorsDatabase::kRoot, u"Project", u"Plant"), u"Formal", u"Requirements");
  const auto attributes = MakeAttributes(sql, module);
  ForEachObject(count, Edition::kFirst, [&](const GeneratedObject& object) {
    const Variant parent = object.parent == 0 ? Variant() : Variant(object.parent);
    sql.Prepare("INSERT INTO object (id, module, absolute_number, parent, position) VALUES (?, ?, ?, ?, ?)",
                object.number, module, object.number, parent, object.number)
        .Run();
    for (std::size_t i = 1; i < kNames.size(); ++i) {
      if (attributes[i] == 0 || object.values[i].empty()) continue;
      const Variant rich = i == kText ? Variant(FromUtf8(object.values[kRichText])) : Variant();
      sql.Prepare("INSERT INTO value (object, attribute, text, rich) VALUES (?, ?, ?, ?)", object.number,
                  attributes[i], FromUtf8(object.values[i]), rich)
          .Run();
    }
  });
  transaction.Commit();
}

}  // namespace kestrune::bench
