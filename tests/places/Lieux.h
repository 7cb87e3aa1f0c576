// Where the sources and the programs lie that the tests look at.
//
// One source alone knows these paths: a checkout that lies elsewhere finds every other object in the compiler's
// cache.
#pragma once

#include <string>

namespace essai {

// Absolute, no separator at the end.
const std::string& DossierSource();      // the checkout
const std::string& DossierProgrammes();  // where the programs of this build lie

}  // namespace essai
