#include "workspace/Module_Image.h"

#include <algorithm>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "image/SceneSelection.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"

namespace ovelin {

namespace {

CourseMachine CourseCourante() { return {LimiteCourseX(), LimiteCourseY()}; }

}  // namespace

OptionsScene OptionsDuDocument(bool numPoint, bool sequence) {
  OptionsScene options = OptionsCourantes(numPoint, sequence);
  options.sobre = Regl.DessinSobre;
  options.descente = {AngleRampe, ProfPasse};
  if (!options.sobre) return options;
  if (Regl.DessinSaignee) options.outil = {RayonFraise, LargeurEncoche, MiniEncoche};
  options.course = CourseCourante();
  return options;
}

Depassement DepassementCourant() { return DepassementDe(Doc, CourseCourante()); }

std::string TexteDepassement(const Depassement& depassement) {
  if (depassement.Vide()) return "";
  std::string texte = Traduire(Textes::TrajetHorsCourse);
  const char* avant = " ";
  const auto ajoute = [&](CleTexte cote, double mm) {
    if (!(mm > 0)) return;
    texte += avant + Traduire(cote) + " " + Formate(mm, "0.0#") + " mm";
    avant = ", ";
  };
  ajoute(Textes::HorsGauche, depassement.gauche);
  ajoute(Textes::HorsDroite, depassement.droite);
  ajoute(Textes::HorsBas, depassement.bas);
  ajoute(Textes::HorsHaut, depassement.haut);
  return texte;
}

std::string TexteEtat(bool change) {
  if (TraceInitial.size() < 2) return "";
  std::string texte = NomDe(FichierCourant) + (change ? "*" : "");
  const BoiteSelection boite = BoiteDe(Doc);
  if (boite.vide) return texte;
  Code2 dernier;
  ProprietesSequence communes;
  SelectionCommune(communes);
  texte += "   " + std::to_string(NbSelectionnees(dernier)) + " " + Traduire(Textes::ParoleSur) + " " +
           std::to_string(Sequences.size()) + " " + Traduire(Textes::ParoleChoisies) + ", " +
           TexteDimensions(double{boite.xmax} - boite.xmin, double{boite.ymax} - boite.ymin);
  if (communes.Profondeur < 0) {
    texte += ", " + Traduire(Textes::ParoleProfondeur) + " " + Formate(communes.Profondeur, "0.0#");
  }
  return texte;
}

void BasculeSobre() {
  Regl.DessinSobre = !Regl.DessinSobre;
  EcritImage();
}

void BasculeSaignee() {
  Regl.DessinSaignee = !Regl.DessinSaignee;
  EcritImage();
}

}  // namespace ovelin
