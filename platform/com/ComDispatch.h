// A foreign automation object, reached by late binding through its IDispatch.
#pragma once

#include <map>
#include <utility>
#include <windows.h>

#include "platform/Automation.h"
#include "platform/com/ComPtr.h"

namespace kestrune {

class ComDispatch : public Dispatch {
 public:
  explicit ComDispatch(ComPtr<IDispatch> object) : far_(std::move(object)) {}

  /// A failure that the object raises keeps its number, source and description. One of the way to it, such as
  /// the end of the other process, keeps its number and gets the system's words.
  Variant Invoke(Access access, TextView member, Args args) override;

  const ComPtr<IDispatch>& Far() const { return far_; }

 private:
  DISPID IdOf(TextView member);

  ComPtr<IDispatch> far_;
  std::map<Text, DISPID, std::less<>> ids_;  // each name is asked for once
};

}  // namespace kestrune
