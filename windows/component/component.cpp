#include "windows/component/component.h"

#include <objidl.h>

#include <atomic>
#include <utility>

#include "windows/com/errors.h"
#include "windows/component/module.h"
#include "windows/host/kept_settings.h"

namespace quillet::windows {
namespace {

// Neither is freed by itself: when the process ends without ending COM, the host's libraries are
// gone before ours.
Component* theComponent = nullptr;
std::atomic<DWORD> itsThread{0};
HANDLE threadHandle = nullptr;
bool starting = false;

// A host's thread may end without ending COM, or with COM held by an input method. What the module
// held of its host went with the thread, so it is left as it is.
void forgetEndedThread() {
  if (!threadHandle || WaitForSingleObject(threadHandle, 0) != WAIT_OBJECT_0) return;
  CloseHandle(std::exchange(threadHandle, nullptr));
  theComponent = nullptr;
  itsThread = 0;
}

void takeThread() {
  threadHandle = OpenThread(SYNCHRONIZE, FALSE, GetCurrentThreadId());
  itsThread = GetCurrentThreadId();
}

void leaveThread() {
  if (threadHandle) CloseHandle(std::exchange(threadHandle, nullptr));
  itsThread = 0;
}

// Told before COM ends on the thread: the host's objects are let go while they still stand.
class LastCall final : public IInitializeSpy {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    if (!object) return E_POINTER;
    *object = iid == IID_IUnknown || iid == IID_IInitializeSpy ? this : nullptr;
    return *object ? S_OK : E_NOINTERFACE;
  }
  // One for the library's whole life.
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return 2; }
  STDMETHODIMP_(ULONG) Release() noexcept override { return 1; }

  STDMETHODIMP PreInitialize(DWORD, DWORD) noexcept override { return S_OK; }
  STDMETHODIMP PostInitialize(HRESULT result, DWORD, DWORD) noexcept override { return result; }
  STDMETHODIMP PreUninitialize(DWORD left) noexcept override {
    if (left == 1 && Component::onItsThread()) Component::end();
    return S_OK;
  }
  STDMETHODIMP PostUninitialize(DWORD) noexcept override { return S_OK; }
};

void watchThread() {
  static LastCall lastCall;
  // Spies are the thread's: each one that ever held the module is watched.
  thread_local bool watched = false;
  if (std::exchange(watched, true)) return;
  ULARGE_INTEGER cookie;
  CoRegisterInitializeSpy(&lastCall, &cookie);
}

class Starting {
 public:
  Starting() {
    if (starting)
      throw errorOf(E_UNEXPECTED,
                    "PrjQuillet");  // the host asks while its own object is being made
    starting = true;
  }
  ~Starting() { starting = false; }
};

}  // namespace

bool Component::exists() {
  forgetEndedThread();
  return itsThread != 0;
}

bool Component::onItsThread() { return itsThread == 0 || itsThread == GetCurrentThreadId(); }

Component& Component::instance() {
  forgetEndedThread();
  if (!onItsThread()) throw errorOf(RPC_E_WRONG_THREAD, "PrjQuillet");
  if (theComponent) return *theComponent;
  const Starting guard;
  module::stayLoaded();
  watchThread();
  takeThread();
  try {
    theComponent = new Component;
  } catch (...) {
    leaveThread();
    throw;
  }
  return *theComponent;
}

void Component::end() noexcept {
  delete std::exchange(theComponent, nullptr);
  leaveThread();
}

Component::Component()
    : objects_(windows_), environment_(windows_, objects_), forms_(environment_) {
  environment_.follow(forms_.context().openForms.acts);
  windows_.keptPlaces().use(keptSettings(*forms_.context().host));
  windows_.onClosed = [this](const Form& form) { objects_.closed(form); };
  windows_.follow(forms_.context().openForms);
}

Component::~Component() {
  windows_.leave();
  objects_.letGo();
}

}  // namespace quillet::windows
