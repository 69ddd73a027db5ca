#include "documents/QueryAnswer.h"

#include <unordered_map>

#include "common/Resources.h"
#include "platform/Xml.h"

namespace kestrune {

namespace {

[[noreturn]] void ThrowUnreadable(const Text& reason) {
  throw AutomationError(error::kUnreadableAnswer, u"QueryAnswer",
                        FormatResText(text::kAnswerUnreadable, {reason}));
}

constexpr TextView kRowPath[] = {u"ORIMDATA", u"Dataset_0", u"Data", u"Row"};
constexpr std::size_t kRowDepth = std::size(kRowPath);

}  // namespace

class RowReader : public XmlHandler {
 public:
  RowReader(const std::vector<Text>& columns, RowVisitor& visitor) : visitor_(visitor), row_(columns.size()) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      spellings_.try_emplace(columns[i], Spelling{i, 1});
      spellings_.try_emplace(AsciiUpper(columns[i]), Spelling{i, 2});
      spellings_.try_emplace(AsciiLower(columns[i]), Spelling{i, 3});
    }
  }

  void OnDocument() override {
    visitor_.OnAnswer();
    depth_ = matched_ = 0;
  }

  bool OnStart(TextView name, const XmlAttributes&) override {
    ++depth_;
    if (depth_ <= kRowDepth && matched_ == depth_ - 1 && name == kRowPath[matched_]) ++matched_;
    if (depth_ == kRowDepth) {
      for (auto& cell : row_.cells_) cell.Rank = 0;
      child_ = 0;
    }
    return depth_ == kRowDepth + 1 && matched_ == kRowDepth && Wants(name);
  }

  void OnEnd(TextView content) override {
    if (depth_ == kRowDepth + 1 && wanted_) {
      wanted_->Content = content;
      wanted_ = nullptr;
    }
    if (depth_ == kRowDepth && matched_ == kRowDepth) visitor_.OnRow(row_);
    if (matched_ == depth_) --matched_;
    --depth_;
  }

 private:
  struct Spelling {
    std::size_t Column;
    int Rank;  // the lowest wins
  };

  bool Wants(TextView name) {
    const Spelling* spelling = SpellingOf(name, child_++);
    if (!spelling) return false;
    QueryRow::Cell& cell = row_.cells_[spelling->Column];
    if (cell.Rank != 0 && cell.Rank <= spelling->Rank) return false;
    if (!visitor_.Wants(row_, spelling->Column)) return false;
    cell.Rank = spelling->Rank;
    wanted_ = &cell;
    return true;
  }

  /// Rows are alike: the n-th child is nearly always what it was in the row before.
  const Spelling* SpellingOf(TextView name, std::size_t n) {
    if (n == last_names_.size()) last_names_.emplace_back(u"", nullptr);
    auto& [last_name, spelling] = last_names_[n];
    if (name != last_name) {
      const auto found = spellings_.find(name);
      last_name = name;
      spelling = found == spellings_.end() ? nullptr : &found->second;
    }
    return spelling;
  }

  RowVisitor& visitor_;
  std::unordered_map<Text, Spelling, TextHash, std::equal_to<>> spellings_;
  std::vector<std::pair<Text, const Spelling*>> last_names_;  // by a child's place in its row
  std::size_t child_ = 0;
  QueryRow row_;
  QueryRow::Cell* wanted_ = nullptr;
  std::size_t depth_ = 0;
  std::size_t matched_ = 0;  // of the elements that are open, those that lead to a row
};

std::int32_t QueryRow::GetNumber(std::size_t column) const {
  const Variant number(NumericValue(GetText(column)));
  try {
    return number.ToInt();
  } catch (const AutomationError&) {
    ThrowUnreadable(Text(GetText(column)));
  }
}

void ForEachRow(const orim::Repository& repository, const Text& sql, const std::vector<Text>& columns,
                RowVisitor& visitor) {
  const Text xml = repository.Query(sql);
  if (xml.empty()) return visitor.OnAnswer();
  RowReader reader(columns, visitor);
  if (const auto error = ReadXmlText(xml, reader)) ThrowUnreadable(error->Reason);
}

}  // namespace kestrune
