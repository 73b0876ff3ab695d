// PrjOrvoReporter.ClsMain and PrjMoxRep.Forms: they show nothing and keep what they are told.
#pragma once

#include "fakes/named_object.h"

namespace quillet::fakes {

Pointer<IDispatch> makeReporter();
Pointer<IDispatch> makeStockForms();
// What was kept, for tests: Report, Stock.
Pointer<IDispatch> makeKept();

}  // namespace quillet::fakes
