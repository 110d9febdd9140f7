#include "ui/design_command.h"

#include "panels/design_pass.h"
#include "ui/create1.h"
#include "ui/current_sail.h"
#include "ui/dessin1.h"
#include "ui/messages.h"
#include "ui/qt_text.h"
#include "ui/windows.h"

namespace brivane {

bool RunDesignPass(Windows& windows, QWidget* parent, const QString& title) {
  DesignResult result;
  Current().View.Mode = RedrawMode::Surface;
  const bool laidOut = RunGuarded(parent, title, [&] {
    const WaitCursor wait;
    result = DesignPass(Current().TheSail);
  });
  const bool tooMany = laidOut && result.End == DesignEnd::TooManyPanels;
  windows.Dimensions().ShowPass(tooMany);
  windows.Picture().SailChanged();
  if (tooMany) ShowMessage(parent, title, ToQt(TooManyPanelsText()));
  return laidOut && !tooMany;
}

}  // namespace brivane
