#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <array>

#include "model/sail_definition.h"
#include "ui/picture_box.h"
#include "ui/screen_room.h"
#include "ui/typed_field.h"
#include "ui/windows.h"

namespace brivane {

class ScrollBox;

/// The mould window: depths and section shapes at three heights, with two profile drawings that
/// follow every move. When it is left the sail is laid out anew.
class SailForm : public QDialog, public ProgramWindow {
 public:
  explicit SailForm(Windows& windows);

  void SetCaptions() override;
  void Activated() override;
  void Left() override;

  static constexpr std::size_t kHeights = 3;  ///< foot, middle, top

  // The controls by name; the arrays are indexed by height.
  std::array<QLineEdit*, kHeights> Text2;        ///< depths, %
  std::array<QScrollBar*, kHeights> VScroll1;    ///< tenths of the luff-side shape
  std::array<QScrollBar*, kHeights> VScroll2;    ///< 500ths of the leech-side shape
  QScrollBar* VScroll3;                          ///< vertical position of the maximum depth
  std::array<QLabel*, kHeights> LuffShapeValue;  ///< beside the bars
  std::array<QLabel*, kHeights> LeechShapeValue;
  QLabel* DepthPositionValue;
  std::array<QLabel*, kHeights> DepthAt20, DepthAt80;
  std::array<QLabel*, kHeights> ColumnTitle;
  PictureBox *Picture1, *Picture2;  ///< profile at the maximum depth, and near the head
  QLabel *FirstTitle, *SecondTitle;
  QPushButton *Load, *Done;

  int DrawCount() const { return drawCount_; }  ///< pairs of profiles drawn so far

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  // Building.
  void Build();
  QLayout* BuildTable();
  QLayout* BuildDepthPosition();
  QGridLayout* BuildDrawings();
  QLayout* BuildButtons();
  void AddRowTitle(QGridLayout* grid, int row);
  void AddBarRow(QGridLayout* grid, int row, std::array<QScrollBar*, kHeights>& bars,
                 std::array<QLabel*, kHeights>& values, const char* name);
  void AddValueRow(QGridLayout* grid, int row, std::array<QLabel*, kHeights>& values,
                   const char* name);
  void AddDepthRow(QGridLayout* grid, int row);
  void Arrange();
  void Place(bool isFlat, bool isNarrow);

  // Values.
  void Fill();
  void ShowValues();
  void NameValues();
  void DrawProfiles();
  void LeaveDepth(std::size_t height);
  void LeaveFocusedDepth();
  void MoveLuffShape(std::size_t height);
  void MoveLeechShape(std::size_t height);
  void MoveDepthPosition();

  // Commands.
  void LoadMould();
  void ReadMould(const std::string& path);

  Windows& windows_;
  std::array<TypedField, kHeights> depths_;
  std::array<QLabel*, 5> rowTitles_;
  QLabel* positionTitle_;
  QBoxLayout* body_;  ///< the values and the drawings, below each other or side by side
  ScrollBox* values_;
  QBoxLayout* valueParts_;  ///< the table and the depth position
  QGridLayout* drawings_;
  Arrangement arrangement_;
  bool passRuns_ = false;
  int drawCount_ = 0;
};

}  // namespace brivane
