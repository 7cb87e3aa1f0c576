#include "tests/ui/principale/Singe.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QTreeView>
#include <QWheelEvent>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "app/ovelin/Composition.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Prise.h"
#include "workspace/Module_Reprise.h"
#include "workspace/Module_Vue.h"

namespace essai {

using namespace ovelin;

void Singe::SetUp() {
  Principale::SetUp();
  const auto entier = [](const char* nom, unsigned long sinon) {
    const char* valeur = std::getenv(nom);
    return valeur != nullptr ? std::strtoul(valeur, nullptr, 10) : sinon;
  };
  graine_ = static_cast<std::uint32_t>(entier("OVELIN_MONKEY_SEED", 20261121));
  actions_ = static_cast<int>(entier("OVELIN_MONKEY_ACTIONS", 1200));
  hasard_.seed(graine_);
  // Boxes and dialogs are answered by chance.
  Svc.Montre = [this](const BoiteMessage& boite) {
    EXPECT_FALSE(boite.texte.empty()) << boite.section << "/" << boite.cle;
    switch (boite.boutons) {
      case Boutons::Ok:
        return Reponse::Ok;
      case Boutons::OkAnnuler:
        return Un(2) == 0 ? Reponse::Ok : Reponse::Annuler;
      case Boutons::OuiNon:
        return Un(2) == 0 ? Reponse::Oui : Reponse::Non;
      default: {
        static const Reponse Reponses[]{Reponse::Oui, Reponse::Non, Reponse::Annuler};
        return Reponses[Un(3)];
      }
    }
  };
  Svc.ChoisitFichier = [this](const DialogueFichier& d) -> std::string {
    if (!force_ && Un(4) == 0) return "";
    if (d.enregistrer) return Dossier() + "/singe" + std::to_string(Un(3)) + ".OVL";
    return Echantillon();
  };
  for (const char* nom : {"F_Repeter", "F_Attaches"}) {
    reponses_[nom] = [this, nom] { return RemplitDialogue(nom); };
  }
  reponses_["F_Nettoyage"] = [this] {
    Regl.Resolution = static_cast<float>(Un(4)) * 0.1F;
    return true;
  };
}

std::string Singe::Echantillon() {
  static const std::vector<std::string> Noms{"equerre.dxf",       "plaque.dxf",        "enseigne.plt",
                                             "aile.dat",          "percage.drl",       "equerre-attaches.OVL",
                                             "plaque-poches.OVL", "enseigne-texte.OVL"};
  return Exemple(Noms[static_cast<std::size_t>(Un(static_cast<int>(Noms.size())))]);
}

Qt::KeyboardModifiers Singe::Touches() {
  static const Qt::KeyboardModifiers Choix[]{Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier,
                                             Qt::ShiftModifier};
  return Choix[Un(4)];
}

std::string Singe::Texte() {
  static const char* const Textes[]{"0",   "-1", "1",   "2.5", "-0.3", "0,75",  "90",  "1e9", "",  "-",
                                    "...", "5",  "-12", "10",  "0.01", "99999", "-99", "45",  "3", "1.5"};
  return Textes[Un(20)];
}

std::string Singe::AgitImage() {
  auto* image = C<ImagePB1>("PB1");
  const QPoint a = Place(*image);
  const QPoint b = Place(*image);
  static const Qt::MouseButton Boutons[]{Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
  const Qt::MouseButton bouton = Boutons[Un(4)];
  const Qt::KeyboardModifiers touches = Touches();
  switch (Un(4)) {
    case 0:
      QTest::mousePress(image, bouton, touches, a);
      QTest::mouseMove(image, b);
      QTest::mouseRelease(image, bouton, touches, b);
      return "drag";
    case 1: {
      QWheelEvent roue(a, image->mapToGlobal(a), {}, {0, Un(2) == 0 ? 120 : -120}, Qt::NoButton, touches,
                       Qt::NoScrollPhase, false);
      QApplication::sendEvent(image, &roue);
      return "wheel";
    }
    case 2: {
      static const Qt::Key Cles[]{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Escape};
      QTest::keyClick(image, Cles[Un(5)], touches);
      return "key";
    }
    default:
      QTest::mouseClick(image, bouton, touches, a);
      return "click";
  }
}

// The wheel over a list that isn't open leaves it as it is.
std::string Singe::RouleSurListe() {
  auto* combo = UnDe<QComboBox>();
  if (combo == nullptr) return "";
  const int avant = combo->currentIndex();
  const QPointF a = combo->rect().center();
  QWheelEvent roue(a, combo->mapToGlobal(a), {}, {0, Un(2) == 0 ? 120 : -120}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(combo, &roue);
  EXPECT_EQ(combo->currentIndex(), avant) << combo->objectName().toStdString();
  return "wheel over " + combo->objectName().toStdString();
}

// The program was killed: its newest snapshot waits, and is taken or left at the next start.
std::string Singe::Reprend() {
  const int n = NumeroInstantane();
  if (n < 1) return "";
  DossierReprises = Dossier() + "/reprises";
  std::filesystem::create_directories(DossierReprises);
  const std::string garde = DossierReprises + "/" + std::to_string(++reprises_) + ".reprise";
  std::filesystem::copy_file(CheminInstantane(n), garde);
  EcritFichierEssai("reprises/" + std::to_string(reprises_) + ".dessin", FichierCourant);
  const bool prise = Un(3) != 0;
  reponses_["F_Reprise"] = [prise] {
    if (prise) RepriseChoisie = ListeReprises().at(0);
    return prise;
  };
  fenetre_.reset();
  EffaceTousInstantanes();
  Doc = Document{};
  Charge();
  Evenements();
  return prise ? "recovered" : "recovery declined";
}

std::string Singe::AgitMenu() {
  static const std::vector<const char*> Noms{"mnu_Undo",
                                             "mnu_Tout",
                                             "mnu_InverseSelection",
                                             "mnu_Supprimer",
                                             "mnu_ZoomPlus",
                                             "mnu_ZoomMoins",
                                             "mnu_Zoom1",
                                             "mnu_ZoomSelection",
                                             "mnu_NumPoint",
                                             "mnu_Sequence",
                                             "mnu_Lever",
                                             "mnu_Optimisation",
                                             "mnu_Nettoyage",
                                             "mnu_Save",
                                             "mnu_SaveAs",
                                             "mnu_Ouvrir",
                                             "mnu_Undo",
                                             "mnu_Undo",
                                             "mnu_Panneau",
                                             "mnu_BD",
                                             "mnu_Redo",
                                             "mnu_Copier",
                                             "mnu_Coller",
                                             "mnu_Dupliquer",
                                             "mnu_Trajets",
                                             "mnu_Saignee",
                                             "mnu_Sobre",
                                             "mnu_Historique",
                                             "mnu_Calque",
                                             "mnu_Repeter",
                                             "mnu_Attaches"};
  QAction* action = Menu(Noms[static_cast<std::size_t>(Un(static_cast<int>(Noms.size())))]);
  if (!action->isEnabled()) return "";
  action->trigger();
  return action->objectName().toStdString();
}

// A dialog is filled in with small numbers and left by one of its two buttons.
bool Singe::RemplitDialogue(const char* nom) {
  const auto fenetre = FaitFenetre(*ChercheFenetre(TableFenetres(), nom), nullptr);
  Montre(*fenetre);
  for (int i = Un(3); i > 0; --i) {
    auto* champ = UnDe<QLineEdit>(*fenetre);
    if (champ != nullptr) Tape(*champ, std::to_string(Un(6)));
  }
  Controle<QPushButton>(*fenetre, "Btn_OK")->click();
  if (fenetre->isVisible()) Controle<QPushButton>(*fenetre, "Btn_Annuler")->click();
  return static_cast<QDialog&>(*fenetre).result() == QDialog::Accepted;
}

// What the hand alone does: a drag of a path or of a grip in small steps, a mark of islands, a fold.
std::string Singe::AgitMain() {
  auto* image = C<ImagePB1>("PB1");
  switch (Un(4)) {
    case 0: {
      auto* ilot = C<QCheckBox>("CB_Ilot");
      if (!ilot->isEnabled()) return "";
      ilot->click();
      return "island";
    }
    case 1: {
      auto* arbre = C<QTreeView>("TreeView1");
      const QModelIndex groupe = arbre->model()->index(0, 0, arbre->model()->index(0, 0));
      const QModelIndex pli = arbre->model()->index(200, 0, groupe);
      if (!pli.isValid() || !arbre->isVisible()) return "";
      arbre->expand(groupe);
      arbre->scrollTo(pli);
      QTest::mouseClick(arbre->viewport(), Qt::LeftButton, Touches(), arbre->visualRect(pli).center());
      return "fold";
    }
    case 2:
      if (Un(8) != 0 || OperationCarte) return "";
      return Un(2) == 0 ? AgitPasse() : AgitOuverture();
    default:
      break;
  }
  if (TraceInitial.empty()) return "";
  const PointTrace& p = TraceInitial[static_cast<std::size_t>(Un(static_cast<int>(TraceInitial.size())))];
  const Poignees prises = PoigneesDe(BoiteDe(Doc), image->Taille());
  const PointEcran prise = Un(2) == 0 ? prises.tourne : prises.coins[Un(4)];
  const QPoint depart = Un(2) == 0 ? PlaceDessin(p.X, p.Y) : (QPointF(prise.X, prise.Y) / TwipsParPixel).toPoint();
  QTest::mousePress(image, Qt::LeftButton, Touches(), depart);
  for (int i = 0; i < 3; ++i) {
    const QPoint ici = Place(*image);
    QMouseEvent e(QEvent::MouseMove, ici, image->mapToGlobal(ici), Qt::NoButton, Qt::LeftButton, Touches());
    QApplication::sendEvent(image, &e);
    image->grab();
  }
  if (Un(4) == 0) QTest::keyClick(image, Qt::Key_Escape);
  QTest::mouseRelease(image, Qt::LeftButton, {}, Place(*image));
  return "hand";
}

// A pocket whose tool path is worth a pass.
void Singe::PosePoche() {
  std::vector<std::pair<float, float>> xy;
  constexpr int n = 3000;
  for (int i = 0; i <= n; ++i) {
    const double a = 2 * M_PI * (i % n) / n;
    xy.emplace_back(static_cast<float>(100 + 30 * std::cos(a)), static_cast<float>(80 + 30 * std::sin(a)));
  }
  TraceInitial.clear();
  Sequences.assign(1, {});
  Complements.OublieTout();
  AjouteSequence(" A", xy);
  Sequences.back().Poche = Sequences.back().Selection = Vrai;
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  RecalculDecalages();
  Svc.Rafraichit();
  Evenements();
}

// Arrow keys while the tool path of a pocket of 3,000 points is computed, or Escape.
std::string Singe::AgitPasse() {
  PosePoche();
  auto* image = C<ImagePB1>("PB1");
  static const Qt::Key Cles[]{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Escape};
  QTimer suite;
  int pas = Un(5);
  QObject::connect(&suite, &QTimer::timeout, &suite, [&] {
    if (--pas < 0) return suite.stop();
    QTest::keyClick(image, Cles[Un(5)]);
  });
  suite.start(2);
  QTest::keyClick(image, Qt::Key_Right, Qt::ShiftModifier);
  return "arrows in a pass";
}

// An opening of such a pocket, with a radius typed into it or Escape.
std::string Singe::AgitOuverture() {
  PosePoche();
  const std::string projet = Dossier() + "/poche.OVL";
  if (!EnregistreProjet(projet).empty()) return "";
  if (Un(2) == 0) QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Up);
  Evenements();
  QTimer suite;
  int pas = Un(4);
  QObject::connect(&suite, &QTimer::timeout, &suite, [&] {
    if (--pas < 0) return suite.stop();
    if (Un(2) == 0) {
      QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Escape);
    } else if (auto* champ = C<QLineEdit>("TB_RayonFraise"); champ->isVisible()) {
      Tape(*champ, std::to_string(1 + Un(5)), Sortie::Entree);
    }
  });
  suite.start(2);
  fenetre_->Depose(projet);
  Evenements();
  return "opening with a pass";
}

std::string Singe::Agit() {
  switch (Un(13)) {
    case 0:
    case 1:
    case 2:
      return AgitImage();
    case 9:
      return tue_ && Un(20) == 0 ? Reprend() : RouleSurListe();
    case 3: {
      auto* champ = UnDe<QLineEdit>();
      if (champ == nullptr) return "";
      const std::string texte = Texte();
      Tape(*champ, texte, Un(2) == 0 ? Sortie::Tab : Sortie::Entree);
      return champ->objectName().toStdString() + " \"" + texte + "\"";
    }
    case 4:
    case 5: {
      auto* bouton = UnDe<QAbstractButton>();
      if (bouton == nullptr) return "";
      const std::string nom = bouton->objectName().toStdString();
      Clique(*bouton);
      return nom;
    }
    case 6: {
      auto* arbre = UnDe<QTreeView>();
      if (arbre == nullptr) return "";
      if (Un(2) == 0) {
        QTest::keyClick(arbre, Un(2) == 0 ? Qt::Key_Down : Qt::Key_Right);
      } else {
        QTest::mouseClick(arbre->viewport(), Qt::LeftButton, Touches(), Place(*arbre->viewport()));
      }
      return "tree";
    }
    case 7:
      return AgitMenu();
    case 11:
      return AgitMain();
    case 8: {
      auto* combo = UnDe<QComboBox>();
      if (combo == nullptr) return "";
      QTest::keyClick(combo, Un(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
      return combo->objectName().toStdString();
    }
    case 10: {
      auto* liste = C<QListView>("List_Historique");
      const int lignes = liste->model()->rowCount();
      if (!liste->isVisible() || lignes == 0) return "";
      const QModelIndex ligne = liste->model()->index(Un(lignes), 0);
      liste->scrollTo(ligne);
      QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, liste->visualRect(ligne).center());
      return "history";
    }
    default:
      fenetre_->resize(760 + Un(700), 520 + Un(500));
      return "resize";
  }
}

// "" when the document is whole.
std::string Singe::Invariants() {
  if (NbPoints < 0) return TraceInitial.empty() ? "" : "points after a refused reading";
  if (static_cast<std::size_t>(NbPoints) != TraceInitial.size()) return "NbPoints";
  if (Sequences.empty()) return "no record at all";
  std::set<std::uint32_t> vus;
  for (const Etendue& e : EtenduesSequences()) {
    if (!vus.insert(e.code.Cle()).second) return "a path in two pieces: " + e.code.Texte();
  }
  std::set<std::uint32_t> fiches;
  for (const SequenceInfo& s : Sequences) {
    if (s.Code != Code2{} && !fiches.insert(s.Code.Cle()).second) return "two records for " + s.Code.Texte();
    if (!std::isfinite(s.Profondeur) || s.Profondeur > 0) return "depth of " + s.Code.Texte();
    if (s.Decalage < 1 || s.Decalage > 3) {
      if (s.Code != Code2{}) return "side of " + s.Code.Texte();
    }
  }
  for (const std::uint32_t code : vus) {
    // A drawing whose paths are all deleted keeps one blank point.
    if (!fiches.contains(code) && code != Code2{}.Cle()) {
      return "a path without a record: \"" +
             Code2{static_cast<char16_t>(code >> 16U), static_cast<char16_t>(code & 0xffffU)}.Texte() + "\"";
    }
  }
  for (const PointTrace& p : TraceInitial) {
    if (!std::isfinite(p.X) || !std::isfinite(p.Y)) return "a coordinate that is no number";
  }
  for (const SequenceDecalee& s : TraceDecale) {
    for (const PointTrace& p : s.Points) {
      if (!std::isfinite(p.X) || !std::isfinite(p.Y)) return "a tool path that is no number";
    }
  }
  if (!(Zoom > 0) || !std::isfinite(Zoom) || !std::isfinite(OrigineDessinX)) return "view";
  if (!std::isfinite(RayonFraise) || !std::isfinite(LargeurEncoche)) return "tool";
  return "";
}

}  // namespace essai
