#include "script/session.h"

#include "script/call.h"

namespace quillet::script {

void Session::settle() {
  if (pump) pump();
  if (const auto failure = dialogs.takeFailure()) throw Error(*failure);
}

}  // namespace quillet::script
