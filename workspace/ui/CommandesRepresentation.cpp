// The commands of the main window, by name.
#include <QPointer>
#include <algorithm>
#include <utility>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"
#include "database/Module_BD.h"
#include "toolpath/Module_Nettoyage.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Enregistrement.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/ui/F_Representation.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Representation";
constexpr double PasFleche = 0.1, PasFlecheLong = 1.0;  // mm

}  // namespace

Executions F_Representation::ToutesExecutions() {
  Executions e;
  e["mnu_Ouvrir"] = [this] { Ouvre(""); };
  e["mnu_Save"] = [this] {
    if (mnu_Save()) Titre();
  };
  e["mnu_SaveAs"] = [this] {
    if (mnu_SaveAs()) Titre();
  };
  e["mnu_Quitter"] = [this] { close(); };
  e["mnu_Undo"] = [this] { Annule(); };
  e["mnu_Tout"] = [] { CB_Tout(); };
  e["mnu_InverseSelection"] = [] { CB_InverseSelection(); };
  e["mnu_Supprimer"] = [this] { Supprime(); };
  e["mnu_ZoomPlus"] = [this] { Redessine(mnu_ZoomPlus()); };
  e["mnu_ZoomMoins"] = [this] { Redessine(mnu_ZoomMoins()); };
  e["mnu_Zoom1"] = [this] { Redessine(mnu_Zoom1(PB1_->Taille())); };
  e["mnu_ZoomSelection"] = [this] {
    SuitSouris(mnu_ZoomSelection_Click());
    SuitOutils();
  };
  e["mnu_Lever"] = [this] {
    SuitSouris(mnu_Lever_Click());
    SuitOutils();
  };
  e["mnu_NumPoint"] = [this] {
    PB1_->NumPoint(commandes_->Action("mnu_NumPoint")->isChecked());
    PB1_->Dessin();
  };
  e["mnu_Sequence"] = [this] {
    PB1_->NumSequence(commandes_->Action("mnu_Sequence")->isChecked());
    PB1_->Dessin();
  };
  e["mnu_Panneau"] = [this] {
    const bool visible = commandes_->Action("mnu_Panneau")->isChecked();
    const int panneau = visible ? std::max(panneau_->sizeHint().width(), panneau_->minimumSizeHint().width()) : 0;
    separateur_->setSizes({width() - panneau, panneau});
  };
  e["mnu_Optimisation"] = [] { mnu_Optimisation_Click(); };
  e["mnu_Defaut"] = [this] { mnu_Defaut(); };
  // windows that the document or this window follows
  e["mnu_Nettoyage"] = [this] { mnu_Nettoyage(); };
  e["mnu_BD"] = [this] {
    if (Fenetre("F_BD") != IssueFenetre::Acceptee) return;
    ChercheFiche();  // a record may have another name, or other values than those in force
    RemplitCB_BD();
  };
  e["mnu_ParamAppli"] = [this] { mnu_ParamAppli(); };
  for (const LigneCommande& c : TableCommandes()) {
    if (*c.fenetre == '\0') continue;
    if (!FenetreExiste || !FenetreExiste(c.fenetre)) {
      e.erase(c.nom);
    } else {
      e.try_emplace(c.nom, [this, &c] { Fenetre(c.fenetre); });
    }
  }
  return e;
}

IssueFenetre F_Representation::Fenetre(const char* nom) {
  return OuvreFenetre ? OuvreFenetre(nom, this) : IssueFenetre::Absente;
}

// An empty path asks with the dialog.
void F_Representation::Ouvre(const std::string& chemin) {
  {
    const PendantOuverture pendant(*this);
    OptionsOuverture options;
    options.dehors = !chemin.empty();
    Cycle.OuvertureDehors = options.dehors;
    mnu_Ouvrir(chemin, options);
  }
  ApresOuverture();
}

// Also where the opening ended for want of memory: the window must not wait for a drawing that never comes.
void F_Representation::FinitOuverture() {
  ouvre_ = false;
  ouverture_ = false;
  Cycle.OuvertureDehors = false;
  PB1_->Retient(false);
  if (!std::exchange(fermetureDue_, false)) return;
  Apres([moi = QPointer<F_Representation>(this)] {
    if (moi != nullptr) moi->close();
  });
}

void F_Representation::ApresOuverture() {
  panneau_->Fraisage()->RemplitOutil();
  PB1_->setFocus(Qt::OtherFocusReason);
  if (NbPoints >= 0) return;
  // Nothing was read: lists and picture are empty, as the document is.
  Rafraichit();
}

void F_Representation::Annule() {
  CrochetsAnnulation crochets;
  crochets.MontreBouton = [this](bool visible) { commandes_->MontreUndo(visible); };
  crochets.RemplitArbres = [this] { panneau_->RemplitArbres(); };
  crochets.DeuxiemeDrapeauOutil = [] { Cycle.AfficheOutil2 = true; };
  crochets.Dessin = [this] { Dessine(); };
  const ResultatAnnulation resultat = mnu_Undo(crochets);
  commandes_->Active("mnu_Undo", resultat.bouton);
  panneau_->OublieDeplacement();
  panneau_->InitSeq();
  panneau_->Fraisage()->RemplitOutil();
  MontreMateriau();
}

// The points that are chosen in the tree, or else the selected paths.
void F_Representation::Supprime() {
  const std::vector<std::int32_t> points = panneau_->TreeView1()->PointsChoisis();
  if (points.empty()) {
    DemandeSupprimer();
  } else {
    SupprimePoints(points);
  }
}

// Colours, the period of the arrows and the language may have changed. The other windows follow a new language when
// this one closes, all of them at once.
void F_Representation::mnu_ParamAppli() {
  const std::string langue = Regl.Langue;
  const bool acceptee = Fenetre("F_ParamAppli") == IssueFenetre::Acceptee;
  const bool autre = Regl.Langue != langue;
  if (autre) ChangeLangue();
  if (!acceptee && !autre) return;
  panneau_->Couleurs();
  Rafraichit();
}

void F_Representation::ChangeLangue() {
  TraduitFenetresOuvertes();
  Titre();
  panneau_->Traduit();
  PB1_->Traduit();
  carte_.reset();
  AfficheCarte();
  commandes_->CB_BD()->setItemText(0, QString::fromStdString(Traduire(Section, "50")));
  BulleMateriau();
}

// A project and an undo bring their own values: another row of the list than the one that was chosen last, or none.
void F_Representation::MontreMateriau() {
  commandes_->CB_BD()->setCurrentIndex(ChercheFiche());
  BulleMateriau();
}

void F_Representation::BulleMateriau() {
  const QString aucun = QString::fromStdString(Traduire(Section, "50"));
  const QString nom = MateriauCourant.empty() ? aucun : QString::fromStdString(MateriauCourant);
  commandes_->CB_BD()->setToolTip(
      TraduireOu(Section, "CB_BDtt",
                 QStringLiteral("Matériau : rayon, profondeurs, vitesses et encoches en une fois")) +
      QLatin1Char('\n') + TraduireOu(Section, "CB_BDvigueur", QStringLiteral("En vigueur :")) + QLatin1Char(' ') +
      nom);
}

// The entry in front applies nothing; the index of a row is its number.
void F_Representation::RemplitCB_BD() {
  QComboBox* combo = commandes_->CB_BD();
  combo->clear();
  combo->addItem(QString::fromStdString(Traduire(Section, "50")));
  for (const FicheMateriau& fiche : LitFiches()) combo->addItem(QString::fromStdString(fiche.champs[0]));
  combo->setCurrentIndex(0);
  BulleMateriau();
}

void F_Representation::ChoisitMateriau(int rang) {
  if (rang > 0) AppliqueMateriau(rang);
  panneau_->Fraisage()->RemplitOutil();
  panneau_->InitSeq();
  BulleMateriau();
  PB1_->setFocus(Qt::OtherFocusReason);
}

// The settings file makes room for a fresh one when the program ends, which it does now.
void F_Representation::mnu_Defaut() {
  Cycle.RemiseDefauts = true;
  close();
}

void F_Representation::mnu_Nettoyage() {
  Regl.Resolution = 0;
  Fenetre("F_Nettoyage");
  if (!mnu_Nettoyage_Click(Regl.Resolution)) return;
  setWindowTitle(QString::fromStdString(Traduire(Section, "lib200") + " " + std::to_string(NbPoints)));
}

// The selection follows the cursor keys, a tenth of a millimetre a stroke, a whole one with Shift.
bool F_Representation::FlecheDeplace(int touche, Qt::KeyboardModifiers touches) {
  int direction = 0;
  double signe = 1;
  switch (touche) {
    case Qt::Key_Left:
      direction = 1;
      signe = -1;
      break;
    case Qt::Key_Right:
      direction = 1;
      break;
    case Qt::Key_Down:
      direction = 3;
      signe = -1;
      break;
    case Qt::Key_Up:
      direction = 3;
      break;
    default:
      return false;
  }
  Code2 dernier;
  if (NbSelectionnees(dernier) == 0) return true;
  const double pas = (touches & Qt::ShiftModifier) != 0 ? PasFlecheLong : PasFleche;
  panneau_->SequencesPage()->Deplace(direction, signe * pas);
  return true;
}

}  // namespace ovelin
