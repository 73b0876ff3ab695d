#include "suite/client_library.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

namespace quillet::suite {
namespace {

constexpr const char* libraryName = "libmariadb.so.3";

// What the library calls of its own must be its own, and not what is linked under the same names.
// AddressSanitizer knows no such preference.
void* openLibrary() {
#ifdef __SANITIZE_ADDRESS__
  throw std::runtime_error("Under AddressSanitizer no database server can be spoken to.");
#else
  return dlopen(libraryName, RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
#endif
}

class Loader {
 public:
  Loader() : library_(openLibrary()) {
    if (library_ == nullptr) {
      throw std::runtime_error("The library that speaks to database servers cannot be loaded (" +
                               std::string(dlerror()) +
                               "). Install it, as with: apt install libmariadb3");
    }
  }

  template <typename Function>
  void take(Function& function, const char* name) const {
    function = reinterpret_cast<Function>(dlsym(library_, name));
    if (function == nullptr) {
      throw std::runtime_error(std::string(libraryName) + " has no function " + name + '.');
    }
  }

 private:
  void* library_;  // stays until the process ends
};

ClientLibrary load() {
  const Loader loader;
  ClientLibrary library{};
  loader.take(library.init, "mysql_init");
  loader.take(library.options, "mysql_options");
  loader.take(library.useCertificates, "mysql_ssl_set");
  loader.take(library.cipher, "mysql_get_ssl_cipher");
  loader.take(library.connect, "mysql_real_connect");
  loader.take(library.close, "mysql_close");
  loader.take(library.ping, "mysql_ping");
  loader.take(library.connectionNumber, "mysql_thread_id");
  loader.take(library.send, "mysql_real_query");
  loader.take(library.begin, "mysql_send_query");
  loader.take(library.finish, "mysql_read_query_result");
  loader.take(library.socket, "mysql_get_socket");
  loader.take(library.storeRows, "mysql_store_result");
  loader.take(library.nextRows, "mysql_next_result");
  loader.take(library.freeRows, "mysql_free_result");
  loader.take(library.countRows, "mysql_num_rows");
  loader.take(library.countFields, "mysql_num_fields");
  loader.take(library.fields, "mysql_fetch_fields");
  loader.take(library.nextRow, "mysql_fetch_row");
  loader.take(library.toRow, "mysql_data_seek");
  loader.take(library.lengths, "mysql_fetch_lengths");
  loader.take(library.escape, "mysql_real_escape_string");
  loader.take(library.errorNumber, "mysql_errno");
  loader.take(library.errorText, "mysql_error");
  return library;
}

}  // namespace

const ClientLibrary& embeddedClient() {
  static constexpr ClientLibrary library{
      mysql_init,
      mysql_options,
      mysql_ssl_set,
      mysql_get_ssl_cipher,
      mysql_real_connect,
      mysql_close,
      mysql_ping,
      mysql_thread_id,
      mysql_real_query,
      mysql_send_query,
      mysql_read_query_result,
      mysql_get_socket,
      mysql_store_result,
      mysql_next_result,
      mysql_free_result,
      mysql_num_rows,
      mysql_num_fields,
      mysql_fetch_fields,
      mysql_fetch_row,
      mysql_data_seek,
      mysql_fetch_lengths,
      mysql_real_escape_string,
      mysql_errno,
      mysql_error,
  };
  return library;
}

const ClientLibrary& remoteClient() {
  static const ClientLibrary library = load();
  return library;
}

}  // namespace quillet::suite
