#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <array>

#include "export/export_file.h"
#include "ui/picture_box.h"
#include "ui/screen_room.h"
#include "ui/typed_field.h"
#include "ui/windows.h"

namespace brivane {

class ScrollBox;

/// The corner patch window: sizes of the four patches, their picture, and their files.
class Patch1 : public QDialog, public ProgramWindow {
 public:
  explicit Patch1(Windows& windows);

  void SetCaptions() override;
  void Activated() override;
  void Left() override;

  static constexpr std::size_t kCorners = 4;  ///< clew, tack, head, peak

  // The controls by name; the arrays are indexed by corner.
  std::array<QLabel*, kCorners> Label1, Label2, Label3;  ///< corner, height and width
  std::array<QLineEdit*, kCorners> Text2, Text3;         ///< heights and widths, %
  PictureBox* Picture1;
  std::array<QPushButton*, 2> Validate1;  ///< plotter file, DXF files
  QPushButton* Cancel;

  int DrawCount() const { return drawCount_; }  ///< pictures drawn so far

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  /// One typed percentage and where it is stored.
  struct Size {
    TypedField Field;
    std::size_t Corner = 0;
    bool IsHeight = false;
  };

  void Build();
  void Arrange();
  QWidget* BuildCorner(std::size_t corner);
  QLineEdit* AddSize(const QString& name, std::size_t corner, bool isHeight);
  QLayout* BuildButtons();
  std::int16_t& Stored(const Size& size);
  void Fill();
  void DrawPatches();
  void LeaveSize(Size& size);
  void LeaveFocusedSize();
  void SavePlotterFile();
  void SaveDxfFiles();
  void Tell(const SaveOutcome& outcome);

  std::vector<Size> sizes_;
  ScrollBox* fields_;
  Arrangement arrangement_;
  int drawCount_ = 0;
};

}  // namespace brivane
