#include "desktop/pdf.h"

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "desktop/report_pages.h"
#include "desktop/text.h"

namespace quillet::desktop {

bool savePdf(const suite::Document& document, const QString& path, const QDate& printed,
             const ReportStyle& style) {
  const ReportPages pages(document, printed, style);
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  {
    QPdfWriter writer(&file);
    writer.setResolution(ReportPages::unitsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageOrientation(pages.landscape() ? QPageLayout::Landscape : QPageLayout::Portrait);
    writer.setPageMargins(QMarginsF());
    writer.setCreator(QStringLiteral("Quillet"));
    if (!document.headings().empty()) writer.setTitle(toQt(document.headings().back().text));
    QPainter painter(&writer);
    for (int page = 0; page < pages.count(); ++page) {
      if (page > 0) writer.newPage();
      pages.paint(painter, page);
    }
  }
  return file.commit();
}

}  // namespace quillet::desktop
