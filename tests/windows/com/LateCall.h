// Calls by name, with arguments as the different kinds of hosts pass them.
#pragma once

#include <string>
#include <windows.h>

#include "platform/com/ComVariant.h"

namespace kestrune::testing {

enum class Passing { kByValue, kByReference, kVariantByReference };

struct LateAnswer {
  HRESULT Result = S_OK;
  std::string Value;       // such as "BSTR Plexa", "I4 -1", "BSTR[] a|b", "EMPTY"
  UINT WrongArgument = 0;  // counted as COM does, from the last one
  HRESULT Number = S_OK;
  std::string Source;
  std::string Description;
};

LateAnswer CallLate(IDispatch& object, const wchar_t* name, const Args& args,
                    Passing passing = Passing::kByValue);

}  // namespace kestrune::testing
