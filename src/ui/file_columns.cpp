#include "ui/file_columns.h"

#include <QDateTime>
#include <QFileSystemModel>
#include <array>

#include "model/number_text.h"
#include "ui/current_sail.h"
#include "ui/qt_text.h"
#include "ui/texts.h"

namespace brivane {

std::string FileSizeText(long long bytes, Language language, char decimalMark) {
  if (bytes == 1) return "1 " + std::string(texts::kByte.In(language));
  if (bytes < 1000) return std::to_string(bytes) + " " + std::string(texts::kBytes.In(language));
  double size = static_cast<double>(bytes) / 1000;
  std::size_t unit = 0;
  for (; size >= 1000 && unit + 1 < texts::kLargeSizes.size(); ++unit) size /= 1000;
  return FormatFixed(size, 1, decimalMark) + " " +
         std::string(texts::kLargeSizes[unit].In(language));
}

std::string FileKindText(std::string_view name, Language language) {
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot + 1 == name.size())
    return std::string(texts::kFile.In(language));
  std::string kind(texts::kFileKind.In(language));
  return kind.replace(kind.find("%1"), 2, name.substr(dot + 1));
}

QVariant FileColumns::data(const QModelIndex& index, int role) const {
  constexpr int kSize = 1;
  constexpr int kKind = 2;
  constexpr int kDate = 3;
  const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
  const bool isWorded = index.column() >= kSize && index.column() <= kDate;
  if (files == nullptr || role != Qt::DisplayRole || !isWorded)
    return QIdentityProxyModel::data(index, role);
  const QModelIndex file = mapToSource(index);
  if (index.column() == kDate)
    return files->lastModified(file).toString(CurrentText(texts::kFileDate));
  const Language language = Current().Language;
  if (files->isDir(file)) return index.column() == kSize ? QString() : CurrentText(texts::kFolder);
  if (index.column() == kKind) return ToQt(FileKindText(FromQt(files->fileName(file)), language));
  return ToQt(FileSizeText(files->size(file), language, Current().DecimalMark));
}

}  // namespace brivane
