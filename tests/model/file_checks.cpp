#include "model/file_checks.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace brivane {

std::optional<FileError> FaultOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileError& error) {
    return error;
  }
  return std::nullopt;
}

void ExpectFault(const std::function<void()>& action, FileErrorKind kind, FileStep step,
                 std::size_t bytes) {
  const std::optional<FileError> fault = FaultOf(action);
  ASSERT_TRUE(fault.has_value()) << "nothing failed";
  EXPECT_EQ(static_cast<int>(fault->Kind), static_cast<int>(kind)) << fault->what();
  EXPECT_EQ(static_cast<int>(fault->Step), static_cast<int>(step)) << fault->what();
  EXPECT_EQ(fault->BytesWritten, bytes);
  EXPECT_EQ(fault->IsPathAccess(), kind != FileErrorKind::Other);
  EXPECT_STRNE(fault->what(), "");
}

SocketFile::SocketFile(const std::string& path) : descriptor_(socket(AF_UNIX, SOCK_STREAM, 0)) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  EXPECT_EQ(bind(descriptor_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
}

SocketFile::~SocketFile() { close(descriptor_); }

}  // namespace brivane
