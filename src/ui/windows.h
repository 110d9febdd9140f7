#pragma once

#include <QObject>
#include <map>
#include <memory>

class QWidget;

namespace brivane {

class Menu1;
class Dessin1;
class Create1;
class SailForm;
class Patch1;

/// What a window of the program does beside being a widget.
class ProgramWindow {
 public:
  virtual ~ProgramWindow() = default;
  virtual void SetCaptions() = 0;  ///< in the current language; at every activation
  virtual void Activated() {}      ///< the window has come to the front
  /// Another window of the program has come to the front, or this one was hidden or closed. The
  /// program's message boxes and file dialogs, and other programs, do not count.
  virtual void Left() {}
};

/// The windows of the program, made once, and what they ask of one another.
class Windows : public QObject {
 public:
  Windows();
  ~Windows() override;

  Menu1& Start() { return *start_; }
  Create1& Dimensions() { return *dimensions_; }
  Dessin1& Picture() { return *picture_; }
  SailForm& Mould() { return *mould_; }
  Patch1& Patches() { return *patches_; }

  /// Shows a window in front of the others.
  void BringToFront(QWidget& window);
  /// Shows a window without taking the front from another one.
  void ShowBehind(QWidget& window);
  /// Takes a window as left already: it is not told again until it has come back.
  void CountAsLeft(ProgramWindow& window);
  /// Ends the event loop of the program, and of any message that is up.
  void EndProgram();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Watch(QWidget& widget, ProgramWindow& window);
  void CameToFront(ProgramWindow& window);
  void WasHidden(ProgramWindow& window);
  void TellLeft(ProgramWindow& window);

  std::map<QObject*, ProgramWindow*> watched_;
  ProgramWindow* front_ = nullptr;
  bool ending_ = false;
  std::unique_ptr<Menu1> start_;
  std::unique_ptr<Dessin1> picture_;
  std::unique_ptr<Create1> dimensions_;
  std::unique_ptr<SailForm> mould_;
  std::unique_ptr<Patch1> patches_;
};

}  // namespace brivane
