// The pages of the handbook, which are built into the program. Each page says itself which topic it
// is and which form it belongs to.
#pragma once

#include <QString>
#include <QStringList>
#include <string_view>
#include <vector>

namespace quillet::desktop {

struct HelpTopic {
  QString id;         // "2-2"
  QStringList forms;  // whose help it is; none of a page of general interest
  QString title;
  QString file;   // ":/help/2-2.html"
  QString words;  // the page's text, for searching
};

// In the order of the handbook.
const std::vector<HelpTopic>& helpTopics();
// Null when there is none.
const HelpTopic* helpTopic(std::string_view id);
const HelpTopic* helpOfForm(std::string_view form);
// As links name it: "2-2-1.html".
const HelpTopic* helpOfFile(const QString& name);
// The topics whose title or text has every word of the search, whatever the case.
std::vector<const HelpTopic*> helpWith(const QString& search);

}  // namespace quillet::desktop
