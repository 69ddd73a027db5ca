// A requirement exchange file in DOORS' terms: modules with attribute definitions and
// objects in document order.
#pragma once

#include <vector>

#include "platform/Text.h"
#include "standins/doors-database/ModuleContent.h"

namespace kestrune::standins {

struct ExchangeAttribute {
  Text name;
  Text type;
  bool on_object = false;
  bool on_module = false;
  bool system = false;
  bool multi = false;
};

struct ExchangeValue {
  std::size_t attribute = 0;  // place in the module's attributes
  Text text;
  Text rich;  // markup; empty where the text has no formatting
};

struct ExchangeObject {
  Text origin;              // what identifies it in later states of the document
  int absolute_number = 0;  // 0: the file gives none
  int parent = -1;          // place in the module's objects, which is before this one; -1: top level
  bool deleted = false;
  TablePart part = TablePart::kNone;
  std::vector<ExchangeValue> values;
};

struct ExchangeModule {
  Text name;
  Text prefix;
  Text description;
  std::vector<ExchangeAttribute> attributes;
  std::vector<ExchangeObject> objects;
  std::vector<ExchangeValue> values;  // of the module itself
  std::vector<Text> warnings;         // what of the file is not in it
};

struct Exchange {
  Text title;
  std::vector<ExchangeModule> modules;
};

}  // namespace kestrune::standins
