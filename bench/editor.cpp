#include "bench/editor.h"

#include <stdexcept>

namespace quillet::bench {

frmcrtb& openEditor(const BenchYear& year) {
  Forms& forms = practice().forms();
  forms.VClCode(year.code);
  forms.VFATbl(year.table);
  forms.VFDate("01042008");
  forms.VSDate("31032009");
  auto* editor = dynamic_cast<frmcrtb*>(forms.ObjCreate());
  if (editor == nullptr) throw std::runtime_error("there is no editor");
  editor->show();
  if (editor->vsfm.rows() != year.lines)
    throw std::runtime_error("the editor shows " + std::to_string(editor->vsfm.rows()) +
                             " lines of " + std::to_string(year.lines));
  return *editor;
}

void closeEditor() { practice().forms().ObjCreate()->close(); }

}  // namespace quillet::bench
