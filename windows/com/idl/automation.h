// Stands in for automation.idl in what the compiler of type libraries generates.
#pragma once

#include <oaidl.h>
#include <olectl.h>
