// A library of the suite's classes whose objects a test makes: QuilletTest.Fakes hands them over.
//   Serve progId, object    what the class makes from now on
//   Serve progId, Nothing   the class cannot make an object any more
#include <map>
#include <string>

#include "data/errors.h"
#include "fakes/by_name.h"
#include "fakes/library.h"
#include "fakes/named_object.h"

namespace quillet::fakes {
namespace {

// Kept for as long as the process runs: what it holds may need COM to go.
std::map<std::string, Pointer<IDispatch>>& served() {
  static auto* const objects = new std::map<std::string, Pointer<IDispatch>>;
  return *objects;
}

Pointer<IDispatch> find(const std::string& progId) {
  const auto found = served().find(progId);
  if (found == served().end()) {
    throw RunTimeError(CLASS_E_CLASSNOTAVAILABLE, "Nothing is served as " + progId, "QuilletTest");
  }
  return found->second;
}

Pointer<IDispatch> makeFakes() {
  auto* const object = new MemberTable;
  object->add("Serve", [](const Call& call) {
    const Pointer<IDispatch> given = windows::asObject(call[1]);
    if (given) {
      served()[call.text(0)] = byName(given);
    } else {
      served().erase(call.text(0));
    }
    return Variant();
  });
  return Pointer<IDispatch>::attach(object);
}

constexpr CLSID classId(unsigned char number) {
  return {0x2f6d4a7e, 0x51c3, 0x4b0e, {0x9a, 0x34, 0x6b, 0x0d, 0x7e, 0x12, 0xc8, number}};
}

constexpr Class all[] = {
    {L"QuilletTest.Fakes", classId(1), makeFakes},
    {L"TalBase.ClsMain", classId(2), [] { return find("TalBase.ClsMain"); }},
    {L"PrjOrvoReporter.ClsMain", classId(3), [] { return find("PrjOrvoReporter.ClsMain"); }},
    {L"PrjMoxRep.Forms", classId(4), [] { return find("PrjMoxRep.Forms"); }},
    {L"Excel.Application", classId(5), [] { return find("Excel.Application"); }},
};

}  // namespace

std::span<const Class> classes() { return all; }

}  // namespace quillet::fakes
