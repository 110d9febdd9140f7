#include "tour/looks.h"

#include <QAbstractButton>
#include <QRadioButton>
#include <array>
#include <cstdio>

#include "tour/camera.h"
#include "tour/hand.h"

namespace brivane::tour {

namespace {

class Looks {
 public:
  Looks(const QDir& folder, const QString& name)
      : camera_(folder.filePath("pictures")), name_(name) {}

  void Take() {
    for (const QString language : {"english", "french"}) {
      language_ = language;
      std::printf("Looks: %s, %s\n", qPrintable(name_), qPrintable(language));
      TakeStartAndDimensions();
      TakeDrawing();
      TakeMould();
      TakePatches();
      hand_.Click(hand_.In<QAbstractButton>(hand_.Window("Dessin1"), "Cancel"));
    }
    hand_.Click(hand_.In<QAbstractButton>(hand_.Window("Menu1"), "Terminate"));
  }

 private:
  void Picture(const char* stop, const std::vector<QWidget*>& windows) {
    camera_.Take(QString("%1-%2-%3").arg(stop, language_, name_), windows);
  }

  void TakeStartAndDimensions() {
    QWidget& start = hand_.Window("Menu1");
    hand_.Choose(
        hand_.In<QAbstractButton>(start, language_ == "french" ? "Langue1_0" : "Langue1_1"));
    Picture("70-start", {&start});
    hand_.Click(hand_.In<QAbstractButton>(start, "Create"));
    QWidget& dimensions = hand_.Window("Create1");
    Picture("71-dimensions", {&dimensions});
    hand_.Fill(hand_.In<QLineEdit>(dimensions, "LuffRondPos"), "70");
    // Back over the fields: the last ones come into sight.
    while (dimensions.focusWidget()->objectName() != "SeamWidth") hand_.Press(Qt::Key_Backtab);
    hand_.Rest();
    Picture("72-dimensions-end", {&dimensions});
    hand_.Click(hand_.In<QAbstractButton>(dimensions, "Validation"));
  }

  void TakeDrawing() {
    QWidget& drawing = hand_.Window("Dessin1");
    hand_.Click(hand_.In<QAbstractButton>(drawing, "Developing"));
    Picture("73-drawing", {&drawing});
    hand_.WhenAsked("FileDialog", [this, &drawing](QWidget& dialog) {
      Picture("74-save", {&drawing, &dialog});
      hand_.Press(Qt::Key_Escape);
    });
    hand_.Pick(drawing, {"fmenu", "fSave", "fSave_Data"});
    hand_.AllAnswered();
  }

  void TakeMould() {
    hand_.Pick(hand_.Window("Dessin1"), {"m_Mold"});
    QWidget& mould = hand_.Window("SailForm");
    Picture("75-mould", {&mould});
    hand_.Click(hand_.In<QAbstractButton>(mould, "Done"));
  }

  void TakePatches() {
    hand_.Pick(hand_.Window("Dessin1"), {"m_Patch"});
    QWidget& patches = hand_.Window("Patch1");
    Picture("76-patches", {&patches});
    hand_.Click(hand_.In<QAbstractButton>(patches, "Cancel"));
  }

  Hand hand_;
  Camera camera_;
  QString name_;
  QString language_;
};

}  // namespace

void TakeLooks(const QDir& folder, const QString& name) { Looks(folder, name).Take(); }

}  // namespace brivane::tour
