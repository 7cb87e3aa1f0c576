// The link to a board on USB over a given table of functions.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "closed/ZenikCom.h"
#include "closed/zenikcom/Hid.h"

namespace zenikcom {

// The LiaisonUsb of ZenikCom.h over `hid`.
Ouverture LiaisonUsb(IdentiteUsb identite, const std::string& fichierVerrou, std::function<std::int64_t()> horloge,
                     FonctionsHid hid);

}  // namespace zenikcom
