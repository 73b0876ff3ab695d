// The bounds of the stack of the thread that works with the database.
#pragma once

namespace quillet::suite {

// The server library asks for them before every statement. For a process's first thread the C
// library answers by reading the map of the whole process, which costs more than a small statement.
// A stack does not move, so a program that calls this asks once for each thread and keeps the
// answer.
void keepStackBounds();

}  // namespace quillet::suite
