#pragma once

#include <QIdentityProxyModel>
#include <string>

#include "model/language.h"

namespace brivane {

/// The size of a file as people read it: whole bytes up to 999, then one place of kB, MB or GB of
/// a thousand times the one before.
std::string FileSizeText(long long bytes, Language language, char decimalMark);

/// What kind of file a name tells, by its extension.
std::string FileKindText(std::string_view name, Language language);

/// The files that a file dialog shows, with sizes, kinds and dates in the language of the program:
/// the toolkit tells them in that of the machine.
class FileColumns : public QIdentityProxyModel {
 public:
  using QIdentityProxyModel::QIdentityProxyModel;
  QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace brivane
