#pragma once

#include <QString>

namespace Terminal {

/// A lock between processes, and between holders in one process. The system gives it back when the
/// holder ends, however it ends, so that none is ever left behind.
class TFileLock {
public:
  enum class TState {
    Held,
    HeldElsewhere,
    Failed ///< the file cannot be opened; Error says why
  };

  /// Takes the lock if nobody has it, and does not wait. `file` is made when there is none, and
  /// stays.
  explicit TFileLock(const QString& file);
  ~TFileLock();
  TFileLock(const TFileLock&) = delete;
  TFileLock& operator=(const TFileLock&) = delete;

  TState State() const { return state_; }
  /// The system's reason; empty unless Failed.
  const QString& Error() const { return error_; }

private:
  int descriptor_;
  TState state_ = TState::Held;
  QString error_;
};

} // namespace Terminal
