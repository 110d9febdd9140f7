#pragma once

#include <limits>
#include <string>
#include <vector>

namespace brivane {

/// What befalls a system call.
enum class CallEffect {
  Fail,     ///< it fails with an error code
  Short,    ///< a write takes a few bytes
  None,     ///< a write takes nothing
  Kill,     ///< the process is killed before it
  KillThen  ///< the process is killed after it
};

/// How far a fault reaches.
enum class CallReach {
  Once,      ///< this one call
  SameCall,  ///< this call and every later one of its name
  AllCalls   ///< this call and whatever comes after it: the disk is gone
};

/// A fault that strikes one of the system calls that the core makes.
struct CallFault {
  int At = 0;  ///< number of the call, from 0, in the order in which they are made
  CallEffect Effect = CallEffect::Fail;
  int Error = 0;
  CallReach Reach = CallReach::Once;
  int Times = std::numeric_limits<int>::max();  ///< it strikes no more often than this

  /// "call 4 (write): No space left on device, for good".
  std::string Words(const std::vector<std::string>& calls) const;
};

/// While it lives, the system calls by which the core reaches the disk are counted, and one fault
/// may strike them. They are replaced for the whole test program and go straight to the system. A
/// failing close closes the file all the same. One at a time.
class WatchedCalls {
 public:
  WatchedCalls();
  explicit WatchedCalls(const CallFault& fault);
  ~WatchedCalls();
  WatchedCalls(const WatchedCalls&) = delete;
  WatchedCalls& operator=(const WatchedCalls&) = delete;

  /// Names of the calls made so far.
  const std::vector<std::string>& Names() const;

  /// Whether a call of this name was struck.
  bool Struck(const std::string& name) const;
  bool Struck() const;
};

/// The error codes that a call of a name is made to fail with.
const std::vector<int>& ErrorsOf(const std::string& name);

}  // namespace brivane
