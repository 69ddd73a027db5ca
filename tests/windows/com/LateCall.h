// Calls by name, with arguments as the different kinds of hosts pass them.
#pragma once

#include <string>
#include <windows.h>

#include "platform/com/ComVariant.h"

namespace kestrune::testing {

enum class Passing { kByValue, kByReference, kVariantByReference };

struct LateAnswer {
  HRESULT result = S_OK;
  std::string value;        // such as "BSTR Plexa", "I4 -1", "BSTR[] a|b", "EMPTY"
  UINT wrong_argument = 0;  // counted as COM does, from the last one
  HRESULT number = S_OK;
  std::string source;
  std::string description;
};

/// The arguments of a callback: the repository, and `args` behind it.
Args With(const Object& repository, const Args& args = {});

LateAnswer CallLate(IDispatch& object, const wchar_t* name, const Args& args,
                    Passing passing = Passing::kByValue);

}  // namespace kestrune::testing
