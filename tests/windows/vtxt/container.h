// Containers for the text box: one that nobody here wrote, the system's host for single controls,
// and one of the tests' own that says what it wishes of its controls.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "windows/com/late.h"
#include "windows/com/pointer.h"

namespace quillet::fakes {

using windows::Late;
using windows::Pointer;
using windows::Variant;

// Takes messages as a program does, those of dialogs included, until none has come for a while.
void pump(HWND dialog);
// Real keys, as the keyboard sends them: characters, then the keys by their codes.
void type(HWND dialog, const std::string& characters);
void press(HWND dialog, WORD code, bool shift = false);
// A real click into the middle of a window.
void click(HWND dialog, HWND window);

// Answers message boxes with Enter and keeps what they said.
class Messages {
 public:
  Messages();
  ~Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  // Those that came since it was asked last, one a line.
  std::string told();

 private:
  UINT_PTR timer_;
};

// Hears the control's events, as "KeyPress 65" or "Change".
class Sink final : public IDispatch {
 public:
  explicit Sink(const Pointer<IUnknown>& control);
  ~Sink();
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;

  // What the sink makes of keys pressed; those that are not named stay what they are.
  std::map<short, short> keys;
  // Runs with each event.
  std::function<void(DISPID)> happened;
  // What came since it was asked last, without the movements of the mouse.
  std::string heard();

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
  STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
    return E_NOTIMPL;
  }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) noexcept override;

 private:
  Pointer<IConnectionPoint> point_;
  DWORD cookie_ = 0;
  std::string heard_;
};

// A window of the test's program.
class Program {
 public:
  Program();
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  HWND window() const { return window_; }

 private:
  HWND window_;
};

// A text box that the system's host for single controls has placed.
class Placed {
 public:
  Placed(const Program& program, int top);

  Pointer<IUnknown> control;
  Late box;
  HWND host = nullptr;  // the host's window

  template <class Interface>
  Pointer<Interface> as() const {
    return control.query<Interface>();
  }
  // The control's own window, and the box in it.
  HWND window() const;
  HWND inner() const { return GetWindow(window(), GW_CHILD); }
  // Gives it the focus as a container does.
  void activate() const;
  std::string text() const;
};

}  // namespace quillet::fakes
