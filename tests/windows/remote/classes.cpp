#include "fakes/library.h"
#include "remote/reporter.h"
#include "remote/service.h"

namespace quillet::fakes {
namespace {

constexpr CLSID idOf(unsigned char number) {
  return {0x7a11f00d, 0x1000, 0x4000, {0x90, 0, 0, 0, 0, 0, 0, number}};
}

}  // namespace

std::span<const Class> classes() {
  static const Class all[] = {
      {L"TalBase.ClsMain", idOf(1), makeService},
      {L"PrjOrvoReporter.ClsMain", idOf(2), makeReporter},
      {L"PrjMoxRep.Forms", idOf(3), makeStockForms},
      {L"QuilletTest.Practice", idOf(4), makePractice},
      {L"QuilletTest.Kept", idOf(5), makeKept},
  };
  return all;
}

}  // namespace quillet::fakes
