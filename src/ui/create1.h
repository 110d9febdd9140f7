#pragma once

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <optional>
#include <vector>

#include "model/dimension_rules.h"
#include "ui/screen_room.h"
#include "ui/typed_field.h"
#include "ui/windows.h"

class QBoxLayout;
class QGridLayout;
class QVBoxLayout;

namespace brivane {

class ScrollBox;

/// The dimensions window: one field for each dimension, corrected as it is left. Validating or
/// leaving the window runs the design pass and shows the drawing window.
class Create1 : public QDialog, public ProgramWindow {
 public:
  explicit Create1(Windows& windows);

  void SetCaptions() override;
  void Activated() override;
  void Left() override;

  /// Shows the current sail afresh: no field is marked, the first one has the focus.
  void Begin();
  /// Shows what a design pass left; the cloth field turns yellow after too many panels.
  void ShowPass(bool tooManyPanels);

  QLineEdit* FieldOf(DimensionField field) const { return Row(field).Edit; }
  QLabel* CaptionOf(DimensionField field) const { return Row(field).Caption; }

  int PassCount() const { return passCount_; }        ///< design passes run so far
  int OutlineCount() const { return outlineCount_; }  ///< outlines computed on leaving a field

  // The controls by name.
  QLineEdit *SailName, *Luff, *LuffRake, *LuffRond, *LuffRondPos, *Foot, *FootRond, *Diag, *Gaff,
      *GaffRond, *GaffA, *LeechRond, *LeechRondPos, *Twistxt, *ClothWidth, *SeamWidth;
  std::array<QLineEdit*, 3> SDepth;
  std::array<QRadioButton*, 3> OptCut1;  ///< 0 cross cut, 1 twist-foot cut, 2 vertical cut
  QPushButton* Validation;
  QLabel *LeechLengthValue, *LpValue, *AreaValue;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct FieldRow : TypedField {
    QLabel* Caption = nullptr;
  };
  struct Result {
    QLabel* Caption = nullptr;
    QLabel* Value = nullptr;
  };

  /// A message about a field, which is marked meanwhile, or about none.
  struct Notice {
    std::optional<DimensionField> Field;
    QString Text;
  };

  // Building.
  void Build();
  QLayout* BuildNameRow();
  QGroupBox* BuildGroup(std::size_t index, const std::vector<DimensionField>& fields);
  QGroupBox* BuildResults();
  QGroupBox* BuildCuts();
  void AddField(QGridLayout* grid, int row, DimensionField field);
  void NameControls();
  void Arrange();
  void Place(bool isNarrow, bool isTight);

  // Fields.
  FieldRow& Row(DimensionField field) { return rows_[static_cast<std::size_t>(field)]; }
  const FieldRow& Row(DimensionField field) const { return rows_[static_cast<std::size_t>(field)]; }
  const DimensionField* FieldAt(const QObject* object) const;
  void Refill();
  void RefillUntyped();
  void FillResults();
  void NameResults();
  void Paint(DimensionField field, FieldColour colour);
  void LeaveField(DimensionField field);
  void LeaveFocusedField();
  void RecomputeAfter(DimensionField field);
  void ShowNotices();
  void ShowNoticesSoon();

  // Cut and validation.
  void ChooseCut(std::size_t index);
  void Validate();
  bool RunPass();

  Windows& windows_;
  std::array<FieldRow, 19> rows_;
  std::array<QGroupBox*, 6> groups_{};
  std::array<Result, 3> results_;
  QBoxLayout* whole_;       ///< the page, and below it the button where it is narrow
  ScrollBox* page_;         ///< all the fields
  QGridLayout* columns_;    ///< of the page
  QBoxLayout* lastGroups_;  ///< the third column, or the row below two columns
  QVBoxLayout* lastColumn_;
  Arrangement arrangement_;
  std::vector<Notice> notices_;  ///< not yet announced
  bool outlineStale_ = false;
  bool passRuns_ = false;
  int passCount_ = 0;
  int outlineCount_ = 0;
};

}  // namespace brivane
