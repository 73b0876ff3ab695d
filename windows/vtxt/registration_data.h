// What a container reads in the registry before it makes the control.
#pragma once

#include <ole2.h>

#include "windows/component/registration.h"

namespace quillet::windows {

// The number of the controls' type library in the file.
inline constexpr int controlsLibrary = 2;

// How the control behaves: drawn anew when it is resized, active from the inside as long as it is
// visible, and it asks its site before anything else.
inline constexpr DWORD miscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                    OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                    OLEMISC_SETCLIENTSITEFIRST;

ClassEntry vtxtClass();
LibraryEntry vtxtLibrary();

}  // namespace quillet::windows
