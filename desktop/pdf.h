// Saves a report as PDF.
#pragma once

#include <QDate>
#include <QString>

#include "desktop/report_style.h"
#include "suite/document.h"

namespace quillet::desktop {

// False when the file cannot be written; a file that was there before is then as it was.
bool savePdf(const suite::Document& document, const QString& path,
             const QDate& printed = QDate::currentDate(), const ReportStyle& style = {});

}  // namespace quillet::desktop
