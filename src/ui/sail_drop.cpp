#include "ui/sail_drop.h"

#include <QFileInfo>
#include <QSysInfo>
#include <QUrl>

#include "ui/qt_text.h"

namespace brivane {

namespace {

/// The path of a file of this machine, empty for any other URL. File managers may name the machine.
QString LocalPath(QUrl url) {
  if (!url.isLocalFile()) return {};
  const QString host = url.host();
  const bool here = host.isEmpty() || host.compare("localhost", Qt::CaseInsensitive) == 0 ||
                    host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
  if (!here) return {};
  url.setHost({});
  return url.toLocalFile();
}

}  // namespace

std::optional<std::string> DraggedSailFile(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  if (urls.size() != 1) return std::nullopt;
  const QString path = LocalPath(urls.front());
  if (path.isEmpty() || QFileInfo(path).isDir()) return std::nullopt;
  const QString extension = QFileInfo(path).suffix().toLower();
  if (extension != "bv3" && extension != "bv4") return std::nullopt;
  return FromQt(path);
}

}  // namespace brivane
