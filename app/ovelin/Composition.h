// The windows of the program, by name: the one place that knows them all.
#pragma once

namespace ovelin {

// Fills `OuvreFenetre` and `FenetreExiste` (core/ui/Fenetres.h), and the size dialog of `Svc`.
void InstalleFenetres();

}  // namespace ovelin
