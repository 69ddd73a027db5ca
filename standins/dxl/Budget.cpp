#include "standins/dxl/Budget.h"

namespace kestrune::dxl {

thread_local Budget* Budget::current_ = nullptr;

}  // namespace kestrune::dxl
