// What the user sees while a command works: the status text, a fixed text. The progress is Avancement.h.
#pragma once

#include <string>
#include <string_view>

#include "core/Avancement.h"
#include "core/Services.h"
#include "core/Traduction.h"

namespace ovelin {

inline void Statut(CleTexte texte) { Svc.Panneau(PanneauEtat::Statut, Traduire(texte)); }
inline void EffaceStatut() { Svc.Panneau(PanneauEtat::Statut, ""); }

// A fixed text without a key.
inline Reponse MessageFixe(const std::string& texte, Icone icone) {
  BoiteMessage boite;
  boite.texte = texte;
  boite.titre = "OVELIN";
  boite.icone = icone;
  return Svc.Montre(boite);
}

}  // namespace ovelin
