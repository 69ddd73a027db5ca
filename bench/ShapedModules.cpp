#include <fstream>
#include <stdexcept>

#include "bench/Module.h"
#include "platform/Files.h"

namespace kestrune::bench {

namespace {

enum : int { kNumber, kIdentifier, kLevel, kText, kHeading, kParent, kFirstOwn };

constexpr int kObjectsPerLevel = 10;

/// Attributes that every export has, where kFirstOwn stands for the first of those "Own 1", "Own 2"...
void WriteStart(std::ostream& out, int own_attributes) {
  constexpr const char* kNames[] = {"Absolute Number", "Object Identifier", "Object Level",
                                    "Object Text",     "Object Heading",    "Object Parent"};
  out << "<?xml version='1.0' encoding='UTF-8'?>\r\n<DoorsModule><Attributes>";
  int id = 0;
  for (const char* name : kNames) out << "<Attribute Name=\"" << name << "\" ID=\"" << id++ << "\"/>";
  for (int i = 1; i <= own_attributes; ++i)
    out << "<Attribute Name=\"Own " << i << "\" ID=\"" << id++ << "\"/>";
  out << "</Attributes><Objects>";
}

template <typename T>
void WriteValue(std::ostream& out, int id, const T& value) {
  out << "<a" << id << '>' << value << "</a" << id << '>';
}

/// A parent of 0 is none.
void WriteObject(std::ostream& out, int number, int parent, int level, int own_attributes, Edition edition) {
  out << "<Object>";
  WriteValue(out, kNumber, number);
  WriteValue(out, kIdentifier, "X-" + std::to_string(number));
  WriteValue(out, kLevel, level);
  const bool is_changed = edition == Edition::kNext && number % 100 == 0;
  WriteValue(out, kText,
             std::string(is_changed ? "Again" : "The") + " text of object " + std::to_string(number));
  if (parent != 0) WriteValue(out, kParent, "X-" + std::to_string(parent));
  for (int i = 0; i < own_attributes; ++i)
    WriteValue(out, kFirstOwn + i,
               "value " + std::to_string((number + i) % 50) + " of attribute " + std::to_string(i));
  out << "</Object>";
}

void WriteEnd(std::ofstream& out, const Text& path) {
  out << "</Objects></DoorsModule>\r\n";
  out.close();
  if (!out) throw std::runtime_error("cannot write " + ToUtf8(path));
}

template <int own_attributes>
void WriteFlat(const Text& path, int objects, Edition edition) {
  std::ofstream out(ToPath(path), std::ios::binary);
  WriteStart(out, own_attributes);
  for (int n = 1; n <= objects; ++n) WriteObject(out, n, 0, 1, own_attributes, edition);
  WriteEnd(out, path);
}

/// The first of every ten lies below the first of the ten before, the others beside it.
template <int own_attributes>
void WriteDeep(const Text& path, int objects, Edition edition) {
  std::ofstream out(ToPath(path), std::ios::binary);
  WriteStart(out, own_attributes);
  for (int n = 1; n <= objects; ++n) {
    const int level = (n - 1) / kObjectsPerLevel;
    WriteObject(out, n, level == 0 ? 0 : (level - 1) * kObjectsPerLevel + 1, level + 1, own_attributes,
                edition);
  }
  WriteEnd(out, path);
}

void WriteOneLong(const Text& path, int characters, Edition) {
  std::ofstream out(ToPath(path), std::ios::binary);
  WriteStart(out, 0);
  out << "<Object>";
  WriteValue(out, kNumber, 1);
  WriteValue(out, kIdentifier, "X-1");
  WriteValue(out, kText, std::string(static_cast<std::size_t>(characters), 'x'));
  out << "</Object>";
  WriteEnd(out, path);
}

std::vector<Text> OwnRules(int count) {
  std::vector<Text> rules;
  for (int i = 1; i <= count; ++i) rules.push_back(u"Own " + ToText(i) + u" --> (Tagged Value)");
  return rules;
}

}  // namespace

const Module kWide{"wide", OwnRules(20), WriteFlat<100>};
const Module kFlat{"flat", OwnRules(16), WriteFlat<16>};
const Module kDeep{"deep", OwnRules(16), WriteDeep<16>};
const Module kOneLong{"one-long", {}, WriteOneLong};

}  // namespace kestrune::bench
