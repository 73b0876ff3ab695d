#include "desktop/help_topics.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

#include "desktop/text.h"

// Outside of any namespace, as Qt wants it: pages in a static library are linked only when named.
static void bindHelpPages() { Q_INIT_RESOURCE(handbook); }

namespace quillet::desktop {
namespace {

QString metaOf(const QString& html, const QString& name) {
  const QRegularExpression meta(QStringLiteral("<meta name=\"%1\" content=\"([^\"]*)\"").arg(name));
  return meta.match(html).captured(1);
}

QString contentsOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

HelpTopic read(const QString& path) {
  const QString html = contentsOf(path);
  QTextDocument page;
  page.setHtml(html);
  return {metaOf(html, QStringLiteral("topic")),
          metaOf(html, QStringLiteral("form")).split(u' ', Qt::SkipEmptyParts),
          page.metaInformation(QTextDocument::DocumentTitle), path, page.toPlainText()};
}

template <class Matches>
const HelpTopic* first(const Matches& matches) {
  const auto& topics = helpTopics();
  const auto found = std::find_if(topics.begin(), topics.end(), matches);
  return found == topics.end() ? nullptr : &*found;
}

}  // namespace

const std::vector<HelpTopic>& helpTopics() {
  static const std::vector<HelpTopic> topics = [] {
    bindHelpPages();
    std::vector<HelpTopic> pages;
    const QDir folder(QStringLiteral(":/help"));
    for (const QString& name : folder.entryList({QStringLiteral("*.html")}, QDir::Files)) {
      pages.push_back(read(folder.filePath(name)));
    }
    // The page of contents names all others, and stands before them.
    const QString contents = contentsOf(folder.filePath(QStringLiteral("index.html")));
    const auto place = [&](const HelpTopic& topic) {
      return contents.indexOf(u'"' + QFileInfo(topic.file).fileName() + u'"');
    };
    std::sort(pages.begin(), pages.end(),
              [&](const HelpTopic& a, const HelpTopic& b) { return place(a) < place(b); });
    return pages;
  }();
  return topics;
}

const HelpTopic* helpTopic(std::string_view id) {
  return first([&](const HelpTopic& topic) { return topic.id == toQt(id); });
}

const HelpTopic* helpOfForm(std::string_view form) {
  return first([&](const HelpTopic& topic) { return topic.forms.contains(toQt(form)); });
}

const HelpTopic* helpOfFile(const QString& name) {
  return first([&](const HelpTopic& topic) { return QFileInfo(topic.file).fileName() == name; });
}

std::vector<const HelpTopic*> helpWith(const QString& search) {
  const QStringList words = search.split(u' ', Qt::SkipEmptyParts);
  std::vector<const HelpTopic*> found;
  for (const HelpTopic& topic : helpTopics()) {
    const bool all = std::all_of(words.begin(), words.end(), [&](const QString& word) {
      return topic.title.contains(word, Qt::CaseInsensitive) ||
             topic.words.contains(word, Qt::CaseInsensitive);
    });
    if (all) found.push_back(&topic);
  }
  return found;
}

}  // namespace quillet::desktop
