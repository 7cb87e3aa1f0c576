// The settings file of a first start.
#pragma once

namespace ovelin {

// Writes the default settings file when there is none. The question of the power interface is asked through the
// services (keys "401" and "402" of "erreurs"): OK gives 0 and 20, Cancel 1 and 0. False when the file can't be
// written; nothing is left behind then, and the reason stands in `Magasin.DerniereErreur`.
bool EcritFichierDefaut();

}  // namespace ovelin
