// The commands of the main window, by name.
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPointer>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "base/Indices.h"
#include "controller/ChoixCarte.h"
#include "core/Aide.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ValeursCles.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"
#include "database/Module_BD.h"
#include "toolpath/Module_Copie.h"
#include "toolpath/Module_Nettoyage.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/chemins/TexteCopie.h"
#include "workspace/ApercuFichier.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Enregistrement.h"
#include "workspace/Module_Image.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Recents.h"
#include "workspace/Module_Reprise.h"
#include "workspace/Module_Travail.h"
#include "workspace/TexteLecture.h"
#include "workspace/ui/F_Representation.h"

namespace ovelin {

namespace {

constexpr double PasFleche = 0.1, PasFlecheLong = 1.0;  // mm
constexpr const char* GenreCopie = "application/x-ovelin-sequences";
constexpr double EcartCopie = 10;  // mm, from a path to its copy, in X and Y

}  // namespace

Executions F_Representation::ToutesExecutions() {
  Executions e;
  e["mnu_Ouvrir"] = [this] { Ouvre(""); };
  e["mnu_Save"] = [this] { Enregistre(mnu_Save); };
  e["mnu_SaveAs"] = [this] { Enregistre(mnu_SaveAs); };
  e["mnu_Quitter"] = [this] { close(); };
  e["mnu_Undo"] = [this] { Annule(mnu_Undo); };
  e["mnu_Redo"] = [this] { Annule(mnu_Redo); };
  e["mnu_Historique"] = [this] { historique_->setVisible(commandes_->Action("mnu_Historique")->isChecked()); };
  e["mnu_Copier"] = [this] { Copie(); };
  e["mnu_Coller"] = [this] { Colle(); };
  e["mnu_Dupliquer"] = [this] { Duplique(); };
  e["mnu_Trajets"] = [] { OrdonneTrajets(); };
  e["mnu_Tout"] = [] { CB_Tout(); };
  e["mnu_InverseSelection"] = [] { CB_InverseSelection(); };
  e["mnu_Calque"] = [] { SelectionneCalques(); };
  e["mnu_Supprimer"] = [this] { Supprime(); };
  e["mnu_ZoomPlus"] = [this] { Redessine(mnu_ZoomPlus()); };
  e["mnu_ZoomMoins"] = [this] { Redessine(mnu_ZoomMoins()); };
  e["mnu_Zoom1"] = [this] { Redessine(mnu_Zoom1(PB1_->Taille())); };
  e["mnu_ZoomSelection"] = [this] { SuitSouris(mnu_ZoomSelection_Click()); };
  e["mnu_Lever"] = [this] { SuitSouris(mnu_Lever_Click()); };
  e["mnu_NumPoint"] = [this] {
    PB1_->NumPoint(commandes_->Action("mnu_NumPoint")->isChecked());
    PB1_->Dessin();
  };
  e["mnu_Sequence"] = [this] {
    PB1_->NumSequence(commandes_->Action("mnu_Sequence")->isChecked());
    PB1_->Dessin();
  };
  e["mnu_Saignee"] = [this] {
    BasculeSaignee();
    PB1_->Dessin();
  };
  e["mnu_Sobre"] = [this] {
    BasculeSobre();
    SuitImage();
    PB1_->Dessin();
  };
  e["mnu_Panneau"] = [this] {
    const bool visible = commandes_->Action("mnu_Panneau")->isChecked();
    const int panneau = visible ? std::max(panneau_->sizeHint().width(), panneau_->minimumSizeHint().width()) : 0;
    separateur_->setSizes({width() - panneau, panneau});
  };
  e["mnu_Optimisation"] = [] { mnu_Optimisation_Click(); };
  e["mnu_Help"] = [] { mnu_Help(); };
  e["mnu_Defaut"] = [this] { mnu_Defaut(); };
  e["mnu_Carte"] = [this] {
    if (DemandeCarte(MoyensOrdinaires())) AfficheCarte();
  };
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
    Cycle.OuvertureDehors = !chemin.empty();
    OuvreFichier(chemin.empty() ? ChoisitDessin() : chemin);
  }
  ApresOuverture();
}

Ouverture F_Representation::OuvreFichier(const std::string& chemin) {
  std::error_code erreur;
  if (chemin.empty() || !std::filesystem::exists(chemin, erreur)) return Ouverture::Abandon;
  const Drapeau avant = Modifie;
  const bool change = TravailChange();
  // Before the file is read: it may be the one that the answer saves.
  if (!PeutLaisser()) return Ouverture::Abandon;
  const bool enregistre = change && !TravailChange();
  DessinLu lu = LitAOuvrir(chemin);
  if (lu.renonce) {
    if (!enregistre) Modifie = avant;
    return Ouverture::Abandon;
  }
  if (lu.refus) {
    RefuseDessinLu(lu);
    if (TravailChange()) Modifie = avant;
    return Ouverture::Refusee;
  }
  OptionsOuverture options;
  options.retient = true;
  const Ouverture issue = OuvreDessinLu(std::move(lu), options);
  if (issue == Ouverture::Refusee) RetientTravail();
  if (issue == Ouverture::Abandon && !enregistre) Modifie = avant;
  return issue;
}

// Whatever the answer, the procedure behind asks nothing more: it looks at Modifie.
bool F_Representation::PeutLaisser() {
  if (TravailChange()) {
    BoiteMessage boite;
    boite.section = Textes::TravailNonEnregistre.Section();
    boite.cle = Textes::TravailNonEnregistre.Cle();
    boite.texte = Traduire(Textes::TravailNonEnregistre) + "\n" + NomDe(FichierCourant);
    boite.titre = windowTitle().toStdString();
    boite.icone = Icone::Question;
    boite.boutons = Boutons::OuiNonAnnuler;
    const Reponse reponse = Svc.Montre(boite);
    if (reponse == Reponse::Oui) {
      if (!Enregistre(mnu_Save)) return false;
    } else if (reponse != Reponse::Non) {
      return false;
    } else if (const std::vector<std::string> placees = ClesPlacees(); !placees.empty()) {
      std::string liste = "\n" + NomDe(FichierCourant);
      for (const std::string& cle : placees) liste += "\n" + cle;
      MessageFichier(Textes::ReglagesDansProjet, liste, Icone::Information, FichierCourant);
    }
  }
  Modifie = Faux;
  return true;
}

void F_Representation::OffreReprises() {
  const Drapeau avant = Modifie;
  if (ListeReprises().empty() || Fenetre("F_Reprise") != IssueFenetre::Acceptee || !PeutLaisser()) return;
  {
    const PendantOuverture pendant(*this);
    if (OuvreReprise(RepriseChoisie) == Ouverture::Abandon && TravailChange()) Modifie = avant;
  }
  ApresOuverture();
  Titre();
}

// A drawing without points would replace its project by a file that nothing can open.
bool F_Representation::Enregistre(bool (*procedure)()) {
  constexpr std::size_t PointsMin = 2;
  if (TraceInitial.size() < PointsMin &&
      Message(Textes::EnregistreVide, Icone::Exclamation, Boutons::OuiNon) != Reponse::Oui) {
    return false;
  }
  if (!procedure()) return false;
  titre_.clear();
  Titre();
  return true;
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
  // What is being typed into a field that has shown the new drawing's tool stays, and so does the keyboard.
  const bool montre = std::exchange(outilMontre_, false);
  if (montre) {
    panneau_->Fraisage()->SuitOutil();
  } else {
    panneau_->Fraisage()->RemplitOutil();
  }
  if (!montre || !panneau_->Fraisage()->EnSaisie()) PB1_->setFocus(Qt::OtherFocusReason);
  Parle();
  MontreEcartes();
  if (NbPoints >= 0) return;
  // Nothing was read: lists and picture are empty, as the document is.
  Rafraichit();
}

void F_Representation::MontreEcartes() {
  const std::string phrase = TraceInitial.empty() ? "" : PhraseLecture(RapportOuvert());
  SB1_->Ecarte(phrase, DetailsLecture(RapportOuvert(), NomDe(FichierCourant)));
}

void F_Representation::MontreRecents() {
  commandes_->RemplitRecents(TextesRecents());
  vide_->Montre(Recents.chemins, DessinsExemples());
}

void F_Representation::OuvreChoisi(const std::string& chemin) {
  const auto recent = std::ranges::find(Recents.chemins, chemin);
  if (recent == Recents.chemins.end()) return Ouvre(chemin);
  commandes_->Recent(base::Indice(recent - Recents.chemins.begin()) + 1);
}

void F_Representation::SuitAnnulation(bool bouton) {
  commandes_->Active("mnu_Undo", bouton);
  commandes_->Active("mnu_Redo", PasARefaire() > 0);
  historique_->Suit();
}

void F_Representation::Annule(const std::function<ResultatAnnulation(const CrochetsAnnulation&)>& pas) {
  CrochetsAnnulation crochets;
  crochets.MontreBouton = [this](bool visible) { commandes_->MontreUndo(visible); };
  crochets.RemplitArbres = [this] { panneau_->RemplitArbres(); };
  crochets.DeuxiemeDrapeauOutil = [] { Cycle.AfficheOutil2 = true; };
  crochets.Dessin = [this] { Dessine(); };
  const ResultatAnnulation resultat = pas(crochets);
  if (!resultat.fait) return;
  SuitAnnulation(resultat.bouton);
  Parle();  // the picture was drawn while the snapshot was the current file
  panneau_->OublieDeplacement();
  panneau_->InitSeq();
  panneau_->Fraisage()->RemplitOutil();
  MontreMateriau();
}

// Each copy that is pasted without another one being made lies a step farther from the original.
void F_Representation::Copie() {
  if (!CopieSelection()) return Svc.Bip();
  collees_ = 0;
  auto* donnees = new QMimeData;  // the clipboard's from now on
  copiee_ = QByteArray::fromStdString(TexteDeCopie(PressePapiers));
  donnees->setData(QLatin1String(GenreCopie), copiee_);
  QApplication::clipboard()->setMimeData(donnees);
}

void F_Representation::Colle() {
  // Another program of this kind may have copied since.
  const QMimeData* donnees = QApplication::clipboard()->mimeData();
  const QByteArray dehors = donnees != nullptr ? donnees->data(QLatin1String(GenreCopie)) : QByteArray();
  if (!dehors.isEmpty() && dehors != copiee_) {
    copiee_ = dehors;
    collees_ = 0;
    if (ovelin::Copie copie = CopieDuTexte(dehors.toStdString(), Regl.ProfFraisage); !copie.Vide()) {
      PressePapiers = std::move(copie);
    }
  }
  const bool vide = TraceInitial.empty();
  const double pas = EcartCopie * (vide ? 0 : collees_ + 1);
  repris_ = false;
  if (ColleCopie(pas, pas)) {
    ++collees_;
  } else if (!repris_) {
    Svc.Bip();
  }
}

void F_Representation::Duplique() {
  repris_ = false;
  if (!DupliqueSelection(EcartCopie, EcartCopie) && !repris_) Svc.Bip();
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
  commandes_->AjusteBarre();
  MontreEcartes();
  PB1_->Traduit();
  carte_.reset();
  AfficheCarte();
  commandes_->CB_BD()->setItemText(0, TexteQt(Textes::AucunMateriau));
  BulleMateriau();
}

// A project and an undo bring their own values: another row of the list than the one that was chosen last, or none.
void F_Representation::MontreMateriau() {
  commandes_->CB_BD()->setCurrentIndex(ChercheFiche());
  BulleMateriau();
}

void F_Representation::BulleMateriau() {
  const QString aucun = TexteQt(Textes::AucunMateriau);
  const QString nom = MateriauCourant.empty() ? aucun : QString::fromStdString(MateriauCourant);
  commandes_->CB_BD()->setToolTip(TexteQt(Textes::BulleMateriaux) + QLatin1Char('\n') +
                                  TexteQt(Textes::MateriauEnVigueur) + QLatin1Char(' ') + nom);
}

// The entry in front applies nothing; the index of a row is its number.
void F_Representation::RemplitCB_BD() {
  QComboBox* combo = commandes_->CB_BD();
  combo->clear();
  combo->addItem(QString::fromStdString(Traduire(Textes::AucunMateriau)));
  for (const FicheMateriau& fiche : LitFiches()) combo->addItem(QString::fromStdString(fiche.champs[0]));
  BulleMateriau();
}

void F_Representation::ChoisitMateriau(int rang) {
  if (OperationCarte) {
    Svc.Bip();
    return MontreMateriau();
  }
  if (rang > 0) {
    if (const auto illisible = FicheIllisible(rang)) AvertitValeurs({*illisible});
    const std::string avant = MateriauCourant;
    if (!AppliqueMateriau(rang) && MateriauCourant == avant) {  // taken back
      QComboBox* combo = commandes_->CB_BD();
      combo->setCurrentIndex(std::max(0, combo->findText(QString::fromStdString(avant))));
    }
  }
  panneau_->Fraisage()->RemplitOutil();
  panneau_->InitSeq();
  BulleMateriau();
  PB1_->setFocus(Qt::OtherFocusReason);
}

// The settings file makes room for a fresh one when the program ends, which it does now: nobody expects that of a
// command about settings, so it is said first.
void F_Representation::mnu_Defaut() {
  if (Message(Textes::DefautPuisFin, Icone::Question, Boutons::OuiNon) != Reponse::Oui) return;
  Cycle.RemiseDefauts = true;
  close();
}

void F_Representation::mnu_Nettoyage() {
  Regl.Resolution = 0;
  Fenetre("F_Nettoyage");
  if (!mnu_Nettoyage_Click(Regl.Resolution)) return;
  setWindowTitle(QString::fromStdString(Traduire(Textes::NombrePoints) + " " + std::to_string(NbPoints)));
}

// The selection follows the cursor keys, a tenth of a millimetre a stroke, a whole one with Shift.
bool F_Representation::FlecheDeplace(int touche, Qt::KeyboardModifiers touches) {
  const bool droite = touche == Qt::Key_Right, haut = touche == Qt::Key_Up;
  const bool enX = droite || touche == Qt::Key_Left;
  if (!enX && !haut && touche != Qt::Key_Down) return false;
  Code2 dernier;
  if (NbSelectionnees(dernier) == 0) return true;
  if (OperationCarte) {
    Svc.Bip();
    return true;
  }
  const double pas = (touches & Qt::ShiftModifier) != 0 ? PasFlecheLong : PasFleche;
  panneau_->SequencesPage()->Deplace(enX ? Direction::X : Direction::Y, droite || haut ? pas : -pas);
  return true;
}

}  // namespace ovelin
