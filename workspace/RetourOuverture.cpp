#include "workspace/RetourOuverture.h"

#include <utility>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ServicesPasse.h"
#include "database/Module_BD.h"
#include "machine/TableCourante.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Travail.h"

namespace ovelin {

RetourOuverture::RetourOuverture(const std::string& chemin, const OptionsOuverture& options,
                                 pathwerk::RapportLecture& rapport)
    : chemin_(chemin),
      options_(options),
      projet_(FichierProjet),
      rapport_(rapport),
      rapportAvant_(rapport),
      reglages_(Regl),
      table_(Table),
      materiau_(MateriauCourant),
      passe_([this] { RemetReste(); }, Entretemps::Ouverture) {}

void RetourOuverture::RemetReste() {
  Regl = reglages_;
  Table = table_;
  MateriauCourant = materiau_;
  rapport_ = std::move(rapportAvant_);
  if (travail_) travail_();
}

void RetourOuverture::CommenceCles() {
  if (!passe_.SeReprend()) EcritCles();
}

void RetourOuverture::CommenceFichiers() {
  if (!passe_.SeReprend()) EffaceAvant();
}

void RetourOuverture::EcritCles() {
  if (std::exchange(cles_, true) || !options_.ecritFichier) return;
  struct Rend {
    std::string projet;
    ~Rend() { FichierProjet = std::move(projet); }
  };
  {
    const Rend rend{std::exchange(FichierProjet, projet_)};
    for (const auto& [cle, valeur] : ClesOuverture(chemin_)) EcrireCle(cle, valeur);
  }
  Svc.FichierRecent(chemin_);
}

void RetourOuverture::EffaceAvant() {
  if (std::exchange(fichiers_, true)) return;
  EffaceTousInstantanes();
  if (options_.rendUniforme) RendUniforme(chemin_);
}

void RetourOuverture::Acheve() {
  EcritCles();
  EffaceAvant();
}

bool RetourOuverture::Suit() {
  // Before a field of the tool is typed in: what is typed from now on is a change.
  if (options_.retient) travail_ = RetientTravailARendre();
  SursisReglages sursis;
  if (!PasseTraces::Faite(passe_.SuitTout())) return false;
  Acheve();
  sursis.Ecrit();
  return true;
}

void RetourOuverture::Reprend() {
  if (!SeReprend()) return;
  passe_.Reprend();
  SvcPasse.ChangementRepris();
}

}  // namespace ovelin
