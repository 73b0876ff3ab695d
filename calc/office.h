// A LibreOffice process of our own. It has no windows and a temporary profile, so that it does not
// disturb one that a person works in, and ends with this object.
#pragma once

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <filesystem>
#include <string>

namespace quillet::calc {

namespace uno = com::sun::star::uno;
namespace frame = com::sun::star::frame;

class Office {
 public:
  // Throws std::runtime_error when LibreOffice is missing or does not answer.
  Office();
  ~Office();
  Office(const Office&) = delete;
  Office& operator=(const Office&) = delete;

  const uno::Reference<frame::XDesktop2>& desktop() const { return desktop_; }

 private:
  void start(const std::string& pipe);
  void connect(const std::string& pipe);
  void end();

  std::filesystem::path profile_;
  int process_ = 0;
  uno::Reference<uno::XComponentContext> context_;
  uno::Reference<frame::XDesktop2> desktop_;
};

}  // namespace quillet::calc
