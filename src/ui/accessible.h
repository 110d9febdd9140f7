#pragma once

#include <QRadioButton>
#include <QString>
#include <vector>

namespace brivane {

/// Lets assistive programs see the program's own widgets as what they are: pictures as images with
/// words for what they show, the start window as a window. Asking for it again changes nothing.
void DescribeOwnWidgets();

/// Makes the checked one of the options the one that Tab comes to; the arrows lead to the others.
void TabToChecked(const std::vector<QRadioButton*>& options);

/// A caption as it is spoken: without mnemonic, dotted leader, equals sign and doubled blanks.
QString Spoken(const QString& caption);

}  // namespace brivane
