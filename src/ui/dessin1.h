#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>

#include "model/language.h"
#include "ui/fitting_label.h"
#include "ui/picture_box.h"
#include "ui/turn_icon.h"
#include "ui/windows.h"

class QGridLayout;

namespace brivane {

/// The drawing window: the sail on its picture, turned by two scroll bars, and the whole command
/// tree.
class Dessin1 : public QMainWindow, public ProgramWindow {
 public:
  explicit Dessin1(Windows& windows);

  void SetCaptions() override;
  void Activated() override;

  /// The current sail has changed: shows it, fitted where the view had not been moved by hand.
  void SailChanged();
  /// Fits the view and shows what the redraw mode shows, both scroll bars at zero.
  void FitAndShow();
  /// Clears the picture and draws by the mode: outline mode fits the view first.
  void Redraw(RedrawMode mode);

  const PictureContent& Content() const { return content_; }
  int DrawCount() const { return drawCount_; }  ///< drawings made so far

  // The controls by name.
  PictureBox* Picture1;
  QScrollBar *HScroll1, *VScroll1;
  TurnIcon *Image1, *Image2;
  QPushButton *Developing, *Clean, *Legende1, *Cancel;
  QMenu *fmenu, *fprint, *fSave;
  QAction *fNew, *fOpen, *fPrint_Data, *fPrint_Drawing, *fPrint_Panels, *fprint_setup, *fSave_Data,
      *fSave_panelDXF, *fSave_XY, *fSave_Tovarek, *fSave_VRML, *fQuit;
  QAction *m_Dimensions, *m_Mold, *m_Patch;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  // Building.
  void BuildMenus();
  void BuildFileMenu();
  QAction* AddCommand(QWidget* menu, const char* name, const std::function<void()>& command);
  void BuildPicture();
  QScrollBar* MakeScrollBar(const char* name, Qt::Orientation orientation);
  QLayout* BuildButtons();
  QPushButton* MakeButton(const char* name, void (Dessin1::*command)());
  void SetMenuCaptions();

  // Drawing.
  void Draw();
  void SpeakOnPicture();  ///< draws the labels anew after a change of the language
  void Fit();
  void ShowLayout();
  QString Described() const;
  void ResetScrollBars();
  void Turn(QScrollBar* moved);
  void PanPicture(PlanePoint from, PlanePoint to);
  void ZoomPicture(PlanePoint from, PlanePoint to);
  void WheelPicture(PlanePoint at, double notches);
  void ViewMoved();
  void PictureResized();

  // Commands.
  void NewSail();
  void Save(std::int16_t kind);
  void SaveVrml2();
  void ShowDimensions();
  void Develop();
  void CleanPicture();
  void ShowLabels();
  void ShowStart();
  void OpenSoon(const std::string& path);

  Windows& windows_;
  FittingLabel* hint_;
  QLabel* layout_;  ///< number of panels and the widest of them
  PictureContent content_;
  Language language_ = Language::English;  ///< of the captions and of the labels on the picture
  bool viewIsFit_ = true;                  ///< not panned or zoomed since the last fit
  int drawCount_ = 0;
};

}  // namespace brivane
