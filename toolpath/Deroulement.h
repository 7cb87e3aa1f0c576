// What the user sees while a command works: the status text, and pending events by time.
#pragma once

#include <string>
#include <string_view>

#include "core/Cadence.h"
#include "core/Services.h"
#include "core/Traduction.h"

namespace ovelin {

inline void Statut(CleTexte texte) { Svc.Panneau(PanneauEtat::Statut, Traduire(texte)); }
inline void EffaceStatut() { Svc.Panneau(PanneauEtat::Statut, ""); }

// Progress bar of a pass: opened and closed with the object, one step an item.
class Avancement {
 public:
  Avancement(const std::string& texte, long total) {
    Svc.AvancementDebut(texte, total);
    Svc.LaisseEvenements(Evenements::Affichage);
  }
  ~Avancement() { Svc.AvancementFin(); }
  Avancement(const Avancement&) = delete;
  Avancement& operator=(const Avancement&) = delete;
  void Plus() {
    Svc.AvancementPlus();
    respiration_.Laisse();
  }

 private:
  Respiration respiration_;
};

// A fixed text without a key.
inline Reponse MessageFixe(const std::string& texte, Icone icone) {
  Boite boite;
  boite.texte = texte;
  boite.titre = "OVELIN";
  boite.icone = icone;
  return Svc.Montre(boite);
}

}  // namespace ovelin
