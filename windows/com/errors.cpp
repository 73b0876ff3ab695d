#include "windows/com/errors.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <new>
#include <utility>

#include "data/text.h"
#include "host/error_log.h"
#include "windows/com/pointer.h"
#include "windows/com/text.h"

namespace quillet::windows {
namespace {

constexpr const char* ownName = "PrjQuillet";

// What a script's language calls a result of COM. For most of the numbers the system has no text.
struct KnownError {
  HRESULT result;
  long number;
  const char* text;
};

constexpr auto knownErrors = std::to_array<KnownError>({
    {E_INVALIDARG, 5, "Invalid procedure call or argument"},
    {DISP_E_OVERFLOW, 6, "Overflow"},
    {E_OUTOFMEMORY, 7, "Out of memory"},
    {DISP_E_BADINDEX, 9, "Subscript out of range"},
    {DISP_E_DIVBYZERO, 11, "Division by zero"},
    {DISP_E_TYPEMISMATCH, 13, "Type mismatch"},
    {E_ACCESSDENIED, 70, "Permission denied"},
    {E_POINTER, 91, "Object variable not set"},
    {REGDB_E_CLASSNOTREG, 429, "The component cannot create the object"},
    {CO_E_CLASSSTRING, 429, "The component cannot create the object"},
    {CLASS_E_CLASSNOTAVAILABLE, 429, "The component cannot create the object"},
    {CO_E_APPNOTFOUND, 429, "The component cannot create the object"},
    {E_NOINTERFACE, 430, "The object does not support the interface"},
    {DISP_E_UNKNOWNNAME, 438, "The object does not support this property or method"},
    {DISP_E_MEMBERNOTFOUND, 438, "The object does not support this property or method"},
    {E_NOTIMPL, 445, "The object does not support this action"},
    {DISP_E_NONAMEDARGS, 446, "The object does not support named arguments"},
    {DISP_E_PARAMNOTFOUND, 448, "Named argument not found"},
    {DISP_E_PARAMNOTOPTIONAL, 449, "Argument not optional"},
    {DISP_E_BADPARAMCOUNT, 450, "Wrong number of arguments or invalid property assignment"},
    {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), 462, "The other program is not there any more"},
});

// Run-time errors of a script language travel in the control facility.
long numberOf(HRESULT result) {
  const auto known = std::find_if(knownErrors.begin(), knownErrors.end(),
                                  [&](const KnownError& e) { return e.result == result; });
  if (known != knownErrors.end()) return known->number;
  return HRESULT_FACILITY(result) == FACILITY_CONTROL ? HRESULT_CODE(result) : result;
}

std::string systemText(HRESULT result) {
  std::array<wchar_t, 512> text{};
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, static_cast<DWORD>(result), 0, text.data(),
                                      static_cast<DWORD>(text.size()), nullptr);
  return std::string(trimmed(utf8(std::wstring_view(text.data(), length))));
}

std::string textOf(long number, HRESULT result) {
  const auto known = std::find_if(knownErrors.begin(), knownErrors.end(),
                                  [&](const KnownError& e) { return e.number == number; });
  if (known != knownErrors.end()) return known->text;
  const std::string text = systemText(result);
  return text.empty() ? "Automation error " + std::to_string(number) : text;
}

TrappedError outgoing(const std::exception& error) {
  TrappedError told = trapped(error);
  if (!dynamic_cast<const RunTimeError*>(&error) || told.source.empty()) told.source = ownName;
  return told;
}

template <class Channel>
HRESULT caughtBy(Channel& channel) noexcept {
  try {
    throw;
  } catch (const std::exception& error) {
    return failed(error, channel);
  } catch (...) {
    return failed(RunTimeError(E_UNEXPECTED, "An unknown exception", ownName), channel);
  }
}

void tellErrorInfo(const TrappedError& told, REFIID interfaceId) {
  Pointer<ICreateErrorInfo> info;
  if (FAILED(CreateErrorInfo(info.put()))) return;
  info->SetGUID(interfaceId);
  info->SetSource(wide(told.source).data());
  info->SetDescription(wide(told.description).data());
  SetErrorInfo(0, info.query<IErrorInfo>().get());
}

}  // namespace

ExceptionInfo::~ExceptionInfo() {
  SysFreeString(bstrDescription);
  SysFreeString(bstrSource);
  SysFreeString(bstrHelpFile);
}

RunTimeError errorOf(HRESULT result, const std::string& where) {
  const long number = numberOf(result);
  return {number, textOf(number, result), where};
}

RunTimeError errorOf(HRESULT result, ExceptionInfo& info, const std::string& where) {
  if (result != DISP_E_EXCEPTION) return errorOf(result, where);
  if (info.pfnDeferredFillIn) std::exchange(info.pfnDeferredFillIn, nullptr)(&info);
  const HRESULT told = info.scode ? info.scode : DISP_E_EXCEPTION;
  const long number = info.wCode ? info.wCode : numberOf(told);
  const std::string description = fromBstr(info.bstrDescription);
  const std::string source = fromBstr(info.bstrSource);
  return {number, description.empty() ? textOf(number, told) : description,
          source.empty() ? where : source};
}

HRESULT resultOf(const std::exception& error) noexcept {
  if (dynamic_cast<const std::bad_alloc*>(&error)) return E_OUTOFMEMORY;
  const auto* known = dynamic_cast<const RunTimeError*>(&error);
  const long number = known ? known->number() : 5;
  if (number < 0) return static_cast<HRESULT>(number);
  return number == 0 || number > 0xffff ? E_FAIL
                                        : MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

HRESULT failed(const std::exception& error, REFIID interfaceId) noexcept {
  try {
    tellErrorInfo(outgoing(error), interfaceId);
  } catch (...) {
    // Too little memory to say more than the result.
  }
  return resultOf(error);
}

HRESULT failed(const std::exception& error, EXCEPINFO* info) noexcept {
  if (!info) return DISP_E_EXCEPTION;
  *info = {};
  info->scode = resultOf(error);
  try {
    const TrappedError told = outgoing(error);
    info->bstrDescription = newBstr(told.description);
    info->bstrSource = newBstr(told.source);
  } catch (...) {
    // Too little memory to say more than the number.
  }
  return DISP_E_EXCEPTION;
}

HRESULT caught(REFIID interfaceId) noexcept { return caughtBy(interfaceId); }
HRESULT caught(EXCEPINFO* info) noexcept { return caughtBy(info); }

}  // namespace quillet::windows
