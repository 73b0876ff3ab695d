#include "suite/act_errors.h"

#include <algorithm>
#include <array>

#include "suite/stations/station_turns.h"

namespace quillet::suite {
namespace {

// The storage is full or fails, another station stands in the way, the connection is gone.
constexpr std::array takingBack{
    1L,     // a file of the server's cannot be made
    2L,     // ... be read
    3L,     // ... be written
    5L,     // out of memory, as the file layer says it
    14L,    // a file cannot be truncated or extended
    20L,    // the disk is full, as the file layer says it
    27L,    // a file cannot be synchronised
    1021L,  // the disk is full
    1023L,  // a file cannot be closed
    1024L,  // a file cannot be read
    1026L,  // a file cannot be written
    1030L,  // the storage engine gave an error
    1036L,  // a table takes no changes
    1037L,  // out of memory
    1041L,  // out of resources
    1044L,  // the account lacks a right on the database
    1047L,  // the node is not part of its cluster any more
    1114L,  // a table cannot grow
    1142L,  // the account lacks a right on a table
    1180L,  // the commit failed
    1205L,  // another station held a lock for too long
    1213L,  // deadlock
    1290L,  // the server takes no changes
    1317L,  // the server was told to end the statement
    1792L,  // the transaction takes no changes
    1836L,  // the same
    1969L,  // the statement took too long
    2006L,  // the connection is gone
    2013L,  // the connection was lost during the statement
    2055L,  // the same, with the system's reason
    changedMeanwhile,
    laterFailed,
};

}  // namespace

bool losesConnection(long error) { return error == 2006 || error == 2013 || error == 2055; }

bool takesBack(long error) {
  return std::find(takingBack.begin(), takingBack.end(), error) != takingBack.end();
}

}  // namespace quillet::suite
