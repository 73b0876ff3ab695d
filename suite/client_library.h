// The functions of a MariaDB client library. The library of the embedded server speaks to servers
// too, but does not check their certificates; the stand-alone one does. Both have the same names,
// so one is linked and the other loaded when a server is named. Their records and constants are
// the same.
#pragma once

#include <mysql.h>

namespace quillet::suite {

struct ClientLibrary {
  decltype(&mysql_init) init;
  decltype(&mysql_options) options;
  decltype(&mysql_ssl_set) useCertificates;
  decltype(&mysql_get_ssl_cipher) cipher;
  decltype(&mysql_real_connect) connect;
  decltype(&mysql_close) close;
  decltype(&mysql_ping) ping;
  decltype(&mysql_thread_id) connectionNumber;
  decltype(&mysql_real_query) send;
  decltype(&mysql_send_query) begin;
  decltype(&mysql_read_query_result) finish;
  decltype(&mysql_get_socket) socket;
  decltype(&mysql_store_result) storeRows;
  decltype(&mysql_next_result) nextRows;
  decltype(&mysql_free_result) freeRows;
  decltype(&mysql_num_rows) countRows;
  decltype(&mysql_num_fields) countFields;
  decltype(&mysql_fetch_fields) fields;
  decltype(&mysql_fetch_row) nextRow;
  decltype(&mysql_data_seek) toRow;
  decltype(&mysql_fetch_lengths) lengths;
  decltype(&mysql_real_escape_string) escape;
  decltype(&mysql_errno) errorNumber;
  decltype(&mysql_error) errorText;
};

// The server within this process.
const ClientLibrary& embeddedClient();
// Servers elsewhere. Loaded at the first call; throws std::runtime_error where it is not installed.
const ClientLibrary& remoteClient();

}  // namespace quillet::suite
