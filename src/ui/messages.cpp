#include "ui/messages.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "model/failures.h"
#include "ui/current_sail.h"
#include "ui/qt_text.h"
#include "ui/texts.h"

namespace brivane {

namespace {

MessageShower& Replacement() {
  static MessageShower shower;
  return shower;
}

/// The arrow cursor while a message is up in the middle of a long operation.
class ArrowCursor {
 public:
  ArrowCursor() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~ArrowCursor() { QApplication::restoreOverrideCursor(); }
  ArrowCursor(const ArrowCursor&) = delete;
  ArrowCursor& operator=(const ArrowCursor&) = delete;
};

/// Widens a message whose title is longer than its text, so that the title can be read.
void MakeRoomForTitle(QMessageBox& box) {
  constexpr int kFrameButtons = 140;  // pixels beside the title: icon and buttons
  QFont bold = box.font();
  bold.setBold(true);
  const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + kFrameButtons;
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

void SetMessageShower(MessageShower shower) { Replacement() = std::move(shower); }

void ShowMessage(QWidget* parent, const QString& title, const QString& text) {
  const ArrowCursor arrow;
  if (Replacement()) return Replacement()(parent, title, text);
  // The program may be ended while the message is up, which deletes the box with its parent.
  const QPointer<QMessageBox> box = new QMessageBox(parent);
  box->setObjectName("Message");
  box->setIcon(QMessageBox::Information);
  box->setTextFormat(Qt::PlainText);
  box->setWindowTitle(title);
  box->setText(text);
  box->addButton(CurrentText(texts::kOk), QMessageBox::AcceptRole);
  MakeRoomForTitle(*box);
  box->exec();
  delete box.data();
}

std::optional<QString> WordsOfFailure(const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& failure) {
    return ToQt(WordsOf(failure, Current().Language));
  }
  return std::nullopt;
}

bool RunGuarded(QWidget* parent, const QString& title, const std::function<void()>& action) {
  const std::optional<QString> failure = WordsOfFailure(action);
  if (failure) ShowMessage(parent, title, *failure);
  return !failure;
}

WaitCursor::WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }

WaitCursor::~WaitCursor() { QApplication::restoreOverrideCursor(); }

}  // namespace brivane
