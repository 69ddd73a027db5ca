// Our objects handed out and foreign ones taken in: what goes through both adapters comes back as it was.
#include <gtest/gtest.h>

#include "platform/com/ComDispatch.h"
#include "platform/com/ComText.h"
#include "platform/com/ComVariant.h"
#include "platform/com/Counted.h"
#include "platform/com/Failure.h"
#include "platform/com/OurDispatch.h"
#include "standins/StandInObject.h"
#include "tests/windows/com/LateCall.h"

namespace kestrune::testing {
namespace {

class Parrot : public standins::StandInObject<Parrot> {
 public:
  static constexpr const char16_t* kClassName = u"Parrot";
  static const Members& Table() {
    static const Members table = {
        {u"Word",
         {.get = [](Parrot& parrot) { return parrot.word_; },
          .put = [](Parrot& parrot, const Variant& word) { parrot.word_ = word; }}},
        {u"Second", {.call = [](Parrot&, const Args& args) { return args[1]; }, .arg_count = 2}},
        {u"Fail",
         {.call = [](Parrot&, const Args& args) -> Variant {
            if (args[0].ToInt() == 1) throw AutomationError(0x80040001, u"Parrot", u"Größe");
            if (args[0].ToInt() == 2) throw std::bad_alloc();
            throw std::runtime_error("lost");
          },
          .arg_count = 1}},
    };
    return table;
  }

 private:
  Variant word_;
};

/// Knows every name, and counts how often it is asked for one.
class AskedDispatch : public Counted<IDispatch> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
    *ids = ++lookups;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return S_OK;
  }
  int lookups = 0;
};

struct AdaptersTest : ::testing::Test {
  ComPtr<IDispatch> dispatch = MakeOurDispatch(std::make_shared<Parrot>());
  Object parrot = FromDispatch(dispatch.Get());
};

TEST_F(AdaptersTest, ValuesComeBackAsTheyWere) {
  const Variant values[] = {{},  true,  false, 0,        -2147483647 - 1, 2147483647,
                            0.5, 1e300, u"",   u"Größe", u"\U0001F682",   Text(u"a\0b", 3)};
  for (const Variant& value : values) {
    parrot.Put(u"Word", value);
    for (const Variant& back : {parrot.Get(u"Word"), parrot.Call(u"Second", {u"first", value})}) {
      EXPECT_EQ(back, value) << ToUtf8(value.ToText());
      EXPECT_EQ(back.IsEmpty(), value.IsEmpty());
      EXPECT_EQ(back.IsBool(), value.IsBool());
      EXPECT_EQ(back.IsInt(), value.IsInt());
      EXPECT_EQ(back.IsDouble(), value.IsDouble());
    }
  }
  for (const std::vector<Text>& texts : {std::vector<Text>{}, {u""}, {u"a", u"ö"}}) {
    parrot.Put(u"Word", texts);
    EXPECT_EQ(parrot.Get(u"Word").ToTextArray(), texts);
  }
}

TEST_F(AdaptersTest, ObjectsStayThemselves) {
  parrot.Put(u"Word", parrot);
  EXPECT_EQ(ToDispatch(parrot.Get(u"Word").ToObject()).Get(), dispatch.Get());
  parrot.Put(u"Word", Object(std::make_shared<Parrot>()));
  parrot.Get(u"Word").ToObject().Put(u"Word", u"inner");
  EXPECT_EQ(parrot.Get(u"Word").ToObject().Get(u"Word"), Variant(u"inner"));
  parrot.Put(u"Word", Object());
  EXPECT_FALSE(parrot.Get(u"Word").ToObject());
}

TEST(ComDispatchTest, EachNameIsLookedUpOnce) {
  ComPtr<AskedDispatch> asked;
  *asked.Out() = new AskedDispatch;
  const Object object = FromDispatch(asked.Get());
  for (const char16_t* member : {u"Word", u"Second", u"Word", u"Word"}) object.Get(member);
  EXPECT_EQ(asked->lookups, 2);
}

TEST_F(AdaptersTest, FailuresKeepTheirParts) {
  const auto failure_of = [&](TextView member, Args args) -> std::string {
    try {
      parrot.Call(member, std::move(args));
      return "none";
    } catch (const AutomationError& error) {
      return std::to_string(error.Number - 0x80000000) + " " +
             ToUtf8(error.Source + u": " + error.Description);
    }
  };
  EXPECT_EQ(failure_of(u"Fail", {1}), std::to_string(0x40001) + " Parrot: Größe");
  EXPECT_TRUE(failure_of(u"Fail", {2}).starts_with(std::to_string(0x7000E) + " Kestrune: "));
  EXPECT_EQ(failure_of(u"Fail", {3}), std::to_string(0xFFFF) + " Kestrune: lost");
  EXPECT_TRUE(failure_of(u"Nothing", {}).starts_with(std::to_string(0x20006) + " Parrot: "));
  EXPECT_TRUE(failure_of(u"Second", {1}).starts_with(std::to_string(0x2000E) + " Parrot: "));
}

TEST_F(AdaptersTest, AUseThatMayBeCallOrReadingIsEither) {
  parrot.Put(u"Word", u"hello");
  EXPECT_EQ(CallLate(*dispatch.Get(), L"Word", {}).value, "BSTR hello");
  for (const Passing passing : {Passing::kByValue, Passing::kByReference, Passing::kVariantByReference})
    EXPECT_EQ(CallLate(*dispatch.Get(), L"Second", {1, 2}, passing).value, "I4 2");
}

struct ForeignValue {
  const char* name;
  VARIANT value;
  Variant expected;
};

VARIANT Foreign(VARTYPE type, long long bits) {
  VARIANT value = {};
  value.vt = type;
  value.llVal = bits;
  return value;
}

TEST(FromComVariantTest, WhatOthersPassIsUnderstood) {
  const auto error = static_cast<std::uint32_t>(DISP_E_PARAMNOTFOUND);
  const ForeignValue values[] = {
      {"null", Foreign(VT_NULL, 0), {}},
      {"left out", Foreign(VT_ERROR, error), {}},
      {"byte", Foreign(VT_UI1, 255), 255},
      {"short", Foreign(VT_I2, 0xFFFF), -1},
      {"unsigned that fits", Foreign(VT_UI4, 7), 7},
      {"unsigned that does not", Foreign(VT_UI4, 0xFFFFFFFF), 4294967295.0},
      {"long long", Foreign(VT_I8, -5), -5},
      {"currency", Foreign(VT_CY, 12500), 1.25},
      {"true", Foreign(VT_BOOL, 0xFFFF), true},
      {"no text", Foreign(VT_BSTR, 0), u""},
  };
  for (const auto& [name, value, expected] : values) {
    const Variant taken = FromComVariant(value);
    EXPECT_EQ(taken, expected) << name;
    EXPECT_EQ(taken.IsDouble(), expected.IsDouble()) << name;
  }
  EXPECT_FALSE(FromComVariant(Foreign(VT_DISPATCH, 0)).ToObject());
}

TEST(FromComVariantTest, ArraysOfVariantsAreTextsAndWhatHasNoCounterpartIsRefused) {
  ComVariant array;
  array.Out()->parray = SafeArrayCreateVector(VT_VARIANT, 3, 2);
  array.Out()->vt = VT_ARRAY | VT_VARIANT;
  LONG index = 4;
  SafeArrayPutElement(array.Get().parray, &index, const_cast<VARIANT*>(&ComVariant(Variant(12)).Get()));
  EXPECT_EQ(FromComVariant(array.Get()).ToTextArray(), (std::vector<Text>{u"", u"12"}));

  ComVariant numbers;
  numbers.Out()->parray = SafeArrayCreateVector(VT_I4, 0, 2);
  numbers.Out()->vt = VT_ARRAY | VT_I4;
  EXPECT_THROW(FromComVariant(numbers.Get()), AutomationError);
  const VARIANT none = Foreign(VT_BYREF | VT_BSTR, 0);
  for (const VARIANT& refused : {Foreign(VT_ERROR, 0x80004005), none, Foreign(VT_BYREF | VT_VARIANT, 0),
                                 Foreign(VT_BYREF | VT_VARIANT, reinterpret_cast<LONG_PTR>(&none))})
    EXPECT_THROW(FromComVariant(refused), AutomationError) << refused.vt;
}

TEST(GuardTest, NothingCrossesTheBoundaryEvenWhereTheFailureCannotBeTold) {
  const auto fail = []() -> HRESULT { throw std::runtime_error("lost"); };
  const auto run_short = [](const AutomationError&) -> HRESULT { throw std::bad_alloc(); };
  EXPECT_EQ(Guarded(fail), E_UNEXPECTED);
  EXPECT_EQ(Guarded(fail, run_short), E_OUTOFMEMORY);
}

}  // namespace
}  // namespace kestrune::testing
