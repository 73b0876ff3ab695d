// TalBase.ClsMain: each call goes to the suite's real service object beside this process.
#pragma once

#include "fakes/named_object.h"

namespace quillet::fakes {

Pointer<IDispatch> makeService();
// What tests ask of the suite: Rows, Execute, Statements, Fail, Log.
Pointer<IDispatch> makePractice();

}  // namespace quillet::fakes
