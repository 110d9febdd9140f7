#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <set>

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

/// The windows of the program and what they ask of one another. Each is made once, when it is first
/// asked for: until then it would only keep the user waiting for the start window.
class Windows : public QObject {
 public:
  Windows();
  ~Windows() override;

  Menu1& Start();
  Create1& Dimensions();
  Dessin1& Picture();
  SailForm& Mould();
  Patch1& Patches();

  /// Shows a window in front of the others.
  void BringToFront(QWidget& window);
  /// Shows a window without taking the front from another one.
  void ShowBehind(QWidget& window);
  /// Takes a window as come to the front already: what another one does as it is left begins now,
  /// even where the desktop does not let the program take the front.
  void CountAsFront(ProgramWindow& window) { CameToFront(window); }
  /// Takes a window as left already: it is not told again until it has come back.
  void CountAsLeft(ProgramWindow& window);
  /// Ends the event loop of the program, and of any message that is up.
  void EndProgram();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  template <typename Window>
  Window& Made(std::unique_ptr<Window>& window);
  void Settle(QWidget& window, const QEvent& event);
  void CameToFront(ProgramWindow& window);
  void WasHidden(ProgramWindow& window);
  void TellLeft(ProgramWindow& window);

  std::map<QObject*, ProgramWindow*> watched_;
  std::set<QObject*> unsettled_;  ///< shown, and not yet known to stand on the screen
  ProgramWindow* front_ = nullptr;
  bool ending_ = false;
  std::unique_ptr<Menu1> start_;
  std::unique_ptr<Dessin1> picture_;
  std::unique_ptr<Create1> dimensions_;
  std::unique_ptr<SailForm> mould_;
  std::unique_ptr<Patch1> patches_;
};

}  // namespace brivane
