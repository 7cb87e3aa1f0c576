#include "gcode/Module_Gcode.h"

#include <algorithm>

#include "base/Indices.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "machine/TableCourante.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

std::uint32_t CouleurVertex(std::int32_t couleur) {
  const auto canal = [&](int decalage) { return static_cast<std::int16_t>((couleur >> decalage) & 255); };
  return RGBtoDXCOLOR(canal(0), canal(8), canal(16));
}

CouleursMouvement CouleursDesReglages() {
  LitCouleursGcode();
  constexpr std::int16_t Gris = 128;
  return {CouleurVertex(Regl.CouleurRapide), CouleurVertex(Regl.CouleurCoupe), CouleurVertex(Regl.CouleurPlongee),
          RGBtoDXCOLOR(Gris, Gris, Gris)};
}

void Avertit(const std::string& texte, Icone icone) {
  BoiteMessage boite;
  boite.texte = texte;
  boite.icone = icone;
  Svc.Montre(boite);
}

}  // namespace

void DitDefauts(const MesureProgramme& mesure) {
  if (!mesure.rejets.empty()) {
    BoiteMessage boite = BoiteDe(Textes::MotRejete, Icone::Critique);
    boite.texte += " " + mesure.rejets.front();
    Svc.Montre(boite);
  }
  const auto arc = [&](DefautArc defaut) {
    return std::find(mesure.defauts.begin(), mesure.defauts.end(), defaut) != mesure.defauts.end();
  };
  if (arc(DefautArc::RayonsInegaux)) Avertit(CentreInterpolation, Icone::Aucune);
  if (arc(DefautArc::SansCercle)) Message(Textes::ArcImpossible, Icone::Exclamation);
  if (mesure.lignesEchouees > 0) Message(Textes::LigneEchouee, Icone::Exclamation);
}

MesureProgramme AnalyseProgramme(const Programme& programme) {
  const CouleursMouvement couleurs = CouleursDesReglages();
  MesureProgramme mesure;
  Travaille([&] { mesure = MesureDe(programme, couleurs, true); });
  PlaceBornes(mesure.bornes);
  DitDefauts(mesure);
  return mesure;
}

void PlaceBornes(const BornesProgramme& bornes) {
  Xmin = EnFloat(bornes.Xmin);
  Xmax = EnFloat(bornes.Xmax);
  Ymin = EnFloat(bornes.Ymin);
  Ymax = EnFloat(bornes.Ymax);
}

void RetablitBornes() { EncombrementGeneral(); }

std::string TexteSansVitesse(const MesureProgramme& mesure) {
  if (mesure.sansVitesse == 0) return "";
  return Traduire(Textes::GcodeSansVitesse) + " " + std::to_string(mesure.ligneSansVitesse) + ": " +
         std::to_string(mesure.sansVitesse);
}

std::string TexteHorsCourse(const MesureProgramme& mesure) {
  const BornesProgramme& b = mesure.bornes;
  std::string texte;
  const auto ajoute = [&](const char* axe, double valeur, const char* signe, double limite) {
    texte += std::string(texte.empty() ? " " : ", ") + axe + " " + Formate(valeur, "0.00") + " " + signe + " " +
             Formate(limite, "0.00");
  };
  const auto course = [&](const char* axe, double mini, double maxi, float limite) {
    if (mini < 0) ajoute(axe, mini, "<", 0);
    if (maxi > limite) ajoute(axe, maxi, ">", double{limite});
  };
  course("X", b.Xmin, b.Xmax, CourseX);
  course("Y", b.Ymin, b.Ymax, CourseY);
  if (b.Zmax - b.Zmin > CourseZ) ajoute("Z", b.Zmax - b.Zmin, ">", double{CourseZ});
  return texte.empty() ? "" : Traduire(Textes::GcodeHorsCourse) + texte;
}

std::string ChoisitProgramme() {
  DialogueFichier dialogue;
  dialogue.cle = "mnu_Ouvrir_Gcode";
  dialogue.titre = Traduire(Textes::FiltreGcode);
  dialogue.filtre = dialogue.titre;
  dialogue.motif = MotifGcode;
  const SansProjet reglages;
  dialogue.propose = LireCle(cles::Fichier, "");
  std::string choisi = CheminComplet(Svc.ChoisitFichier(dialogue));
  if (!choisi.empty()) EcrireCle(cles::Fichier, choisi);
  return choisi;
}

BoiteMessage BoiteLignesRefusees(CleTexte texte, Boutons boutons, const Programme& programme) {
  constexpr std::size_t LongueurMontree = 80;
  const ComptesProgramme& comptes = programme.Comptes();
  BoiteMessage boite = BoiteDe(texte, Icone::Exclamation, boutons);
  boite.texte += "\n" + std::to_string(comptes.refusees) + "\n" + std::to_string(comptes.premiereRefusee) + ": " +
                 DeTexte8(Coupe8(programme.Ligne(comptes.premiereRefusee - 1), LongueurMontree));
  boite.ligne = base::Compte(comptes.premiereRefusee);
  return boite;
}

bool OuvreProgramme(const std::string& chemin, Programme& programme) {
  ProgrammeLu lu;
  Travaille([&] { lu = LitProgramme(chemin); });
  if (!lu.refus.empty()) {
    MessageFichier(Textes::LectureRefusee, "\n" + chemin + "\n" + lu.refus, Icone::Critique, chemin);
    return false;
  }
  programme = std::move(lu.programme);
  if (programme.Comptes().refusees == 0) return true;
  BoiteMessage boite = BoiteLignesRefusees(Textes::LignesRefusees, Boutons::Ok, programme);
  boite.fichier = chemin;
  Svc.Montre(boite);
  return true;
}

}  // namespace ovelin
