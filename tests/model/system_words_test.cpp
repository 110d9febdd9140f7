#include "model/system_words.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <cstring>
#include <string>

namespace brivane {
namespace {

// What the calls on files may answer: open, fstat, read, write, fsync, close, rename, fcntl.
constexpr int kFileErrors[] = {
    EPERM,  ENOENT, EIO,    ENXIO,   EBADF,        EAGAIN, ENOMEM,    EACCES, EFAULT,  EBUSY,
    EEXIST, EXDEV,  ENODEV, ENOTDIR, EISDIR,       EINVAL, ENFILE,    EMFILE, ETXTBSY, EFBIG,
    ENOSPC, EROFS,  EMLINK, EPIPE,   ENAMETOOLONG, ELOOP,  EOVERFLOW, EDQUOT, ESTALE,  ETIMEDOUT};

TEST(SystemErrorWords, AreInEnglishThoseOfTheLibraryWhateverTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "C");
  for (const int code : kFileErrors)
    EXPECT_EQ(SystemErrorWords(code).English, std::strerror(code)) << code;
  std::setlocale(LC_ALL, before.c_str());
}

TEST(SystemErrorWords, TellEveryErrorOfAFileApartInBothLanguages) {
  for (const int a : kFileErrors)
    for (const int b : kFileErrors) {
      if (a == b) continue;
      EXPECT_NE(SystemErrorWords(a).English, SystemErrorWords(b).English);
      EXPECT_NE(SystemErrorWords(a).French, SystemErrorWords(b).French);
    }
}

TEST(SystemErrorWords, SpeakFrench) {
  EXPECT_EQ(SystemErrorWords(ENOSPC).French, "Plus de place sur le disque");
  EXPECT_EQ(SystemErrorWords(EACCES).French, "Permission refusée");
}

TEST(SystemErrorWords, HaveGeneralWordsForAnyOtherNumber) {
  EXPECT_EQ(SystemErrorWords(0).English, "The system reports an error with this file");
  EXPECT_EQ(SystemErrorWords(99999).French, "Le système signale une erreur sur ce fichier");
}

}  // namespace
}  // namespace brivane
