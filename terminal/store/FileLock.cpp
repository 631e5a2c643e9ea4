#include "terminal/store/FileLock.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace Terminal {

namespace {

constexpr int OfTheUser = 0600;

} // namespace

TFileLock::TFileLock(const QString& file)
    : descriptor_(
          open(QFile::encodeName(file).constData(), O_RDWR | O_CREAT | O_CLOEXEC, OfTheUser)) {
  if (descriptor_ >= 0 && flock(descriptor_, LOCK_EX | LOCK_NB) == 0)
    return;
  const int error = errno;
  state_ = error == EWOULDBLOCK ? TState::HeldElsewhere : TState::Failed;
  if (state_ == TState::Failed)
    error_ = QString::fromLocal8Bit(std::strerror(error));
}

TFileLock::~TFileLock() {
  if (descriptor_ >= 0)
    close(descriptor_);
}

} // namespace Terminal
