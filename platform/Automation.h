// Late binding: values, objects and failures as automation knows them, on every platform alike.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <variant>
#include <vector>

#include "platform/Text.h"

namespace kestrune {

class Variant;
using Args = std::vector<Variant>;

/// A failure as automation reports it; the same three parts travel in COM's EXCEPINFO.
struct AutomationError : std::runtime_error {
  AutomationError(std::uint32_t number, Text source, Text description);

  std::uint32_t Number;  // such as 0x800403E9
  Text Source;           // such as u"DoorsDoc.Load"
  Text Description;      // what the user may be shown
};

/// The numbers of the failures that this code raises or tells apart.
namespace error {
inline constexpr std::uint32_t kNotConnected = 0x80010108;  // the object has disconnected from its clients
inline constexpr std::uint32_t kCallFailed = 0x800706BE;    // the remote procedure call failed
inline constexpr std::uint32_t kServerUnavailable = 0x800706BA;  // the other process is gone
inline constexpr std::uint32_t kUnknownMember = 0x80020006;      // the object has no member of that name
inline constexpr std::uint32_t kTypeMismatch = 0x80020005;       // a value cannot become the wanted type
inline constexpr std::uint32_t kWrongArgumentCount = 0x8002000E;
inline constexpr std::uint32_t kObjectMissing = 0x800A005B;  // a member of "nothing" was used
inline constexpr std::uint32_t kNoSuchClass = 0x800401F3;    // no class is registered under that ProgID
inline constexpr std::uint32_t kFileFailure = 0x800A004B;    // a file could not be read or written

// The add-in's own, each with one meaning, from the base that automation leaves to its users.
inline constexpr std::uint32_t kBase = 0x80040000;
inline constexpr std::uint32_t kNoSuchAttribute = kBase;           // no rule names the attribute
inline constexpr std::uint32_t kUnknownField = kBase + 1;          // a rule's target is no field of the host
inline constexpr std::uint32_t kRefusedByDoors = kBase + 2;        // a script answered an error, or nothing
inline constexpr std::uint32_t kFieldSeparatorInside = kBase + 3;  // a script's parameter holds a "~"
inline constexpr std::uint32_t kUnreadableAnswer = kBase + 4;      // the host's answer to a query
inline constexpr std::uint32_t kMalformedRule = kBase + 5;        // the line of a mapping rule cannot be read
inline constexpr std::uint32_t kUnmappableAttribute = kBase + 6;  // its name would not stand in a rule
inline constexpr std::uint32_t kUnreadableRecord = kBase + 7;     // a record with such lines
inline constexpr std::uint32_t kForeignParent = kBase + 8;        // an element lies below one not imported
inline constexpr std::uint32_t kBadExport = kBase + 1001;         // an export file cannot be read

/// True when the failure says that the other side of an automation object is not there any more.
constexpr bool IsConnectionLost(std::uint32_t number) {
  return number == kNotConnected || number == kCallFailed || number == kServerUnavailable;
}
}  // namespace error

enum class Access { kGet, kPut, kCall };

/// The far side of an object: an IDispatch on Windows, a stand-in's object elsewhere.
class Dispatch {
 public:
  virtual ~Dispatch() = default;
  /// Reads, writes (the value is the last argument) or calls `member`. Throws AutomationError, nothing else.
  virtual Variant Invoke(Access access, TextView member, Args args) = 0;
};

/// A late-bound automation object; "nothing" is false. Every failure is thrown as AutomationError.
class Object {
 public:
  Object() = default;
  explicit Object(std::shared_ptr<Dispatch> peer) : peer_(std::move(peer)) {}

  Variant Get(TextView member) const;
  Variant Get(TextView member, Args args) const;
  void Put(TextView member, Variant value) const;
  Variant Call(TextView member) const;
  Variant Call(TextView member, Args args) const;

  explicit operator bool() const { return peer_ != nullptr; }
  /// For code that made the far side itself and wants it back.
  const std::shared_ptr<Dispatch>& Peer() const { return peer_; }

 private:
  Variant Invoke(Access access, TextView member, Args args) const;
  std::shared_ptr<Dispatch> peer_;
};

/// A value as automation passes it: empty, Boolean, 32-bit whole number, double, text,
/// object, array of texts.
class Variant {
 public:
  Variant() = default;
  Variant(bool value) : value_(value) {}
  Variant(std::int32_t value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(Text value) : value_(std::move(value)) {}
  Variant(TextView value) : value_(Text(value)) {}
  Variant(const char16_t* value) : value_(Text(value)) {}
  Variant(Object value) : value_(std::move(value)) {}
  Variant(std::vector<Text> value) : value_(std::move(value)) {}
  template <typename T>
  Variant(T*) = delete;  // a pointer would turn into true

  bool IsEmpty() const { return Holds<std::monostate>(); }
  bool IsBool() const { return Holds<bool>(); }
  bool IsInt() const { return Holds<std::int32_t>(); }
  bool IsDouble() const { return Holds<double>(); }
  bool IsText() const { return Holds<Text>(); }
  bool IsObject() const { return Holds<Object>(); }
  bool IsTextArray() const { return Holds<std::vector<Text>>(); }

  /// The value in the wanted type, converted as automation converts: empty is 0, false, "" and nothing; true
  /// is -1; a number becomes its decimal text and a numeric text its number, rounded for a whole number.
  /// Throws AutomationError kTypeMismatch where there is no such conversion.
  bool ToBool() const;
  std::int32_t ToInt() const;
  double ToDouble() const;
  Text ToText() const&;
  Text ToText() && {
    return IsText() ? std::get<Text>(std::move(value_)) : static_cast<const Variant&>(*this).ToText();
  }
  Object ToObject() const;
  std::vector<Text> ToTextArray() const;

  /// The text without a copy. Only for a Variant that IsText().
  const Text& AsText() const { return std::get<Text>(value_); }

  /// Empty equals "" and equals 0; two numbers are equal by value whatever their type; text equals text
  /// exactly; a number never equals a text. Objects and arrays equal nothing.
  friend bool operator==(const Variant& a, const Variant& b);

 private:
  template <typename T>
  bool Holds() const {
    return std::holds_alternative<T>(value_);
  }
  bool IsNumber() const { return IsBool() || IsInt() || IsDouble(); }

  std::variant<std::monostate, bool, std::int32_t, double, Text, Object, std::vector<Text>> value_;
};

}  // namespace kestrune
