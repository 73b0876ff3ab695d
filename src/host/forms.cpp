#include "host/forms.h"

#include "editor/frmcrtb.h"
#include "home/third.h"

namespace quillet {

Forms::Forms(Environment& environment) : context_(environment) {}

std::string Forms::MyDllVersion() const { return QUILLET_VERSION; }

Form* Forms::ObjCreate() {
  try {
    return &theEditor(context_);
  } catch (const std::exception&) {
    return nullptr;
  }
}

Form* Forms::ObjThird() {
  try {
    return &theHome(context_);
  } catch (const std::exception&) {
    return nullptr;
  }
}

void Forms::VClCode(const std::string& code) { context_.clientCode = code; }
void Forms::VFATbl(const std::string& table) { context_.table = table; }
void Forms::VFDate(const std::string& firstDate) { context_.firstDate = firstDate; }
void Forms::VSDate(const std::string& secondDate) { context_.secondDate = secondDate; }

}  // namespace quillet
