#pragma once

#include <cstdint>

namespace brivane {

/// The time that the toolkit and the program measure, held still and moved by hand: what hangs on
/// timers comes out the same each time, however fast the machine. The processor time and the time
/// of day go on by themselves.
class MonkeyClock {
 public:
  /// Holds the time at a whole second. Before the application is made.
  static void Hold();
  static void Advance(int milliseconds);
};

/// Waits until no other thread of the program has anything to do (the file dialog reads folders in
/// one of its own), at most for seconds. True where it had to wait.
bool WaitForOtherThreads();

}  // namespace brivane
