// Errors across the border: a failed call becomes a RunTimeError, an exception of ours the error of
// a call. Number, description and source stay what they are.
#pragma once

#include <ole2.h>

#include <exception>
#include <string>
#include <type_traits>

#include "data/errors.h"

namespace quillet::windows {

// --- inward

// What a call says about its exception; frees the texts.
class ExceptionInfo : public EXCEPINFO {
 public:
  ExceptionInfo() : EXCEPINFO{} {}
  ~ExceptionInfo();
  ExceptionInfo(const ExceptionInfo&) = delete;
  ExceptionInfo& operator=(const ExceptionInfo&) = delete;
};

// `where` is the source when the callee names none: "TalBase.ClsMain.ConQuery".
RunTimeError errorOf(HRESULT result, const std::string& where);
// Of a call that answered `result`; `info` tells more when that is DISP_E_EXCEPTION.
RunTimeError errorOf(HRESULT result, ExceptionInfo& info, const std::string& where);

// --- outward

// The result that tells the number of an error.
HRESULT resultOf(const std::exception& error) noexcept;

// For a member of a dual interface: leaves description and source for the caller to ask.
HRESULT failed(const std::exception& error, REFIID interfaceId) noexcept;
// For Invoke. `info` may be null.
HRESULT failed(const std::exception& error, EXCEPINFO* info) noexcept;

// Of the exception that is being handled, whatever it is. Only within a catch.
HRESULT caught(REFIID interfaceId) noexcept;
HRESULT caught(EXCEPINFO* info) noexcept;

// Runs the body of a member; no exception leaves it. A body may answer a result of its own.
template <class Channel, class Body>
HRESULT guardedBy(Channel&& channel, Body&& body) noexcept {
  try {
    if constexpr (std::is_void_v<std::invoke_result_t<Body>>) {
      body();
      return S_OK;
    } else {
      return body();
    }
  } catch (...) {
    return caught(channel);
  }
}

template <class Body>
HRESULT guarded(REFIID interfaceId, Body&& body) noexcept {
  return guardedBy(interfaceId, body);
}

template <class Body>
HRESULT guarded(EXCEPINFO* info, Body&& body) noexcept {
  return guardedBy(info, body);
}

}  // namespace quillet::windows
