// The common controls of version 6 for the windows that are made while this object lives. Without
// them, in a Windows that refuses, the older ones serve.
#pragma once

#include <windows.h>

namespace quillet::windows {

class VisualStyles {
 public:
  VisualStyles();
  ~VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

}  // namespace quillet::windows
