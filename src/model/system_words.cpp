#include "model/system_words.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace brivane {
namespace {

struct ErrorWords {
  int Code;
  BilingualText Words;
};

// The English words are those of the C library.
constexpr std::array kErrorWords{
    ErrorWords{EPERM, {"Operation not permitted", "Opération non permise"}},
    ErrorWords{ENOENT, {"No such file or directory", "Aucun fichier ou dossier de ce nom"}},
    ErrorWords{EIO, {"Input/output error", "Erreur d'entrée/sortie"}},
    ErrorWords{ENXIO, {"No such device or address", "Aucun périphérique à cette adresse"}},
    ErrorWords{EBADF, {"Bad file descriptor", "Mauvais descripteur de fichier"}},
    ErrorWords{EAGAIN, {"Resource temporarily unavailable", "Ressource momentanément occupée"}},
    ErrorWords{ENOMEM, {"Cannot allocate memory", "Mémoire insuffisante"}},
    ErrorWords{EACCES, {"Permission denied", "Permission refusée"}},
    ErrorWords{EFAULT, {"Bad address", "Mauvaise adresse"}},
    ErrorWords{EBUSY, {"Device or resource busy", "Périphérique ou ressource occupé"}},
    ErrorWords{EEXIST, {"File exists", "Le fichier existe déjà"}},
    ErrorWords{EXDEV, {"Invalid cross-device link", "Lien vers un autre périphérique"}},
    ErrorWords{ENODEV, {"No such device", "Aucun périphérique de ce type"}},
    ErrorWords{ENOTDIR, {"Not a directory", "N'est pas un dossier"}},
    ErrorWords{EISDIR, {"Is a directory", "Est un dossier"}},
    ErrorWords{EINVAL, {"Invalid argument", "Argument invalide"}},
    ErrorWords{ENFILE, {"Too many open files in system", "Trop de fichiers ouverts (système)"}},
    ErrorWords{EMFILE, {"Too many open files", "Trop de fichiers ouverts"}},
    ErrorWords{ETXTBSY, {"Text file busy", "Fichier en cours d'exécution"}},
    ErrorWords{EFBIG, {"File too large", "Fichier trop grand"}},
    ErrorWords{ENOSPC, {"No space left on device", "Plus de place sur le disque"}},
    ErrorWords{EROFS, {"Read-only file system", "Disque en lecture seule"}},
    ErrorWords{EMLINK, {"Too many links", "Trop de liens"}},
    ErrorWords{EPIPE, {"Broken pipe", "Tube interrompu"}},
    ErrorWords{ENAMETOOLONG, {"File name too long", "Nom de fichier trop long"}},
    ErrorWords{ELOOP, {"Too many levels of symbolic links", "Trop de liens symboliques imbriqués"}},
    ErrorWords{EOVERFLOW,
               {"Value too large for defined data type", "Valeur trop grande pour ce type"}},
    ErrorWords{EDQUOT, {"Disk quota exceeded", "Quota de disque dépassé"}},
    ErrorWords{ESTALE, {"Stale file handle", "Fichier disparu du disque réseau"}},
    ErrorWords{ETIMEDOUT, {"Connection timed out", "Délai de connexion dépassé"}},
};

constexpr BilingualText kOtherWords{"The system reports an error with this file",
                                    "Le système signale une erreur sur ce fichier"};

}  // namespace

BilingualText SystemErrorWords(int code) {
  const auto* found = std::find_if(kErrorWords.begin(), kErrorWords.end(),
                                   [code](const ErrorWords& entry) { return entry.Code == code; });
  return found == kErrorWords.end() ? kOtherWords : found->Words;
}

}  // namespace brivane
