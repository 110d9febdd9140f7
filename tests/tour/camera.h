#pragma once

#include <QDir>
#include <QWidget>
#include <vector>

namespace brivane::tour {

/// Takes pictures of windows as they stand on the screen.
class Camera {
 public:
  explicit Camera(const QDir& folder) : folder_(folder) {}

  /// Takes a picture of the windows, with what lies before them, and tells its name. Where the
  /// screen gives no picture the windows paint themselves, the last one in front. Throws LostWay
  /// where the picture cannot be saved or shows one colour alone.
  void Take(const QString& name, const std::vector<QWidget*>& windows) const;

 private:
  QDir folder_;
};

}  // namespace brivane::tour
