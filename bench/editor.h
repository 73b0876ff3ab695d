// The editor as the benchmarks use it: opened as the host opens it.
#pragma once

#include "bench/support.h"
#include "editor/frmcrtb.h"

namespace quillet::bench {

// Throws when the editor does not show every line.
frmcrtb& openEditor(const BenchYear& year);
void closeEditor();

}  // namespace quillet::bench
