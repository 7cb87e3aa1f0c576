#include "tests/places/Lieux.h"

namespace essai {

const std::string& DossierSource() {
  static const std::string dossier = OVELIN_SOURCE_DIR;
  return dossier;
}

const std::string& DossierProgrammes() {
  static const std::string dossier = OVELIN_BINARY_DIR "/bin";
  return dossier;
}

}  // namespace essai
