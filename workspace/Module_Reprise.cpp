#include "workspace/Module_Reprise.h"

#include <utility>

#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Travail.h"

namespace ovelin {

Reprise RepriseChoisie;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { RepriseChoisie = Reprise{}; });

}  // namespace

Ouverture OuvreReprise(const Reprise& reprise) {
  DessinLu lu;
  lu.chemin = reprise.fichier;
  lu.extension = "OVL";
  lu.contenu.rapport.Format = "OVL";
  Travaille([&] { lu.projet = LitProjet(reprise.fichier); });
  if (lu.projet->refus) {
    Message(Textes::RepriseIllisible, Icone::Critique);
    return Ouverture::Refusee;
  }
  OptionsOuverture options;
  options.ecritFichier = false;
  options.rendUniforme = false;
  const Ouverture issue = OuvreDessinLu(std::move(lu), options);
  if (issue != Ouverture::Reussie) return issue;
  FichierCourant = reprise.dessin;
  ExtensionCourante = ExtensionDe(reprise.dessin);
  FichierProjet = "Chargt";
  Modifie = Vrai;
  RetientTravail();
  MarqueTravail();
  Svc.Panneau(PanneauEtat::Fichier, " " + NomDe(FichierCourant));
  NoteDessin(FichierCourant);
  OteApresInstantane(reprise);
  return issue;
}

}  // namespace ovelin
