// The document on show in the main window: what follows it, and what the mouse has done to it.
#include <QKeyEvent>
#include <algorithm>
#include <utility>

#include "core/Cadence.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/PasseJusque.h"
#include "core/ui/ServicesQt.h"
#include "toolpath/ChampsOutil.h"
#include "workspace/Module_Image.h"
#include "workspace/Module_Souris.h"
#include "workspace/Module_Travail.h"
#include "workspace/Module_Vue.h"
#include "workspace/ui/F_Representation.h"

namespace ovelin {

namespace {

bool EstFleche(int touche) {
  return touche == Qt::Key_Left || touche == Qt::Key_Right || touche == Qt::Key_Up || touche == Qt::Key_Down;
}

bool EstChampOutil(const QWidget& controle) {
  return std::ranges::any_of(LignesOutil(), [&controle](const LigneOutil& ligne) {
    return controle.objectName() == QLatin1String(ligne.champ);
  });
}

// While a tool path is computed: another value of the tool, another step of the selection, or the way back. What is
// meant for the window of moves by hand is forgotten: the machine would move when nobody expects it any more. What
// the pass doesn't let in waits.
SortEvenement JugePendantPasse(const QWidget& cible, const QWidget& fenetre, const QWidget& image, const QEvent& e,
                               const PasseInterruptible& passe) {
  const bool appui = e.type() == QEvent::KeyPress;
  if (appui || e.type() == QEvent::KeyRelease) {
    const int touche = static_cast<const QKeyEvent&>(e).key();
    if (touche == Qt::Key_Escape) return appui ? SortEvenement::Arrete : SortEvenement::Refuse;
    if (!passe.sansFleches && &cible == &image && EstFleche(touche)) return SortEvenement::Laisse;
  }
  if (!passe.seule && cible.window() == &fenetre && EstChampOutil(cible) && e.type() != QEvent::Wheel)
    return SortEvenement::Laisse;
  return cible.window()->objectName() == QLatin1String("F_PilMan") ? SortEvenement::Refuse : SortEvenement::Tient;
}

}  // namespace

void F_Representation::Rafraichit() {
  // What an opening leaves on its way isn't shown, and no step of undo leads there.
  if (ouverture_) return;
  Respiration souffle;
  panneau_->RemplitArbres();
  souffle.Laisse();
  panneau_->InitSeq();
  souffle.Laisse();
  Dessine();
}

void F_Representation::Dessine() {
  finRepondue_ = false;
  vide_->setVisible(TraceInitial.size() < 2);
  alerte_->Suit();
  Parle();
  PB1_->Dessin();
}

bool F_Representation::MenePasse(const PasseInterruptible& passe) {
  return ovelin::MenePasse(passe, [this, &passe](const QWidget& cible, const QEvent& e) {
    return JugePendantPasse(cible, *this, *PB1_, e, passe);
  });
}

void F_Representation::MontreSansTrajet() {
  vide_->setVisible(TraceInitial.size() < 2);
  // The first of this sheet, or one that is being opened. One without an extent fits nowhere, which is told later.
  const bool etendu = Xmax != Xmin || Ymax != Ymin;
  if (etendu && !commandes_->Action("mnu_Zoom1")->isEnabled()) mnu_Zoom1(PB1_->Taille());
  alerte_->hide();
  // A project has its own tool, whose fields may be typed in from now on.
  if (ouverture_ && !std::exchange(outilMontre_, true)) panneau_->Fraisage()->RemplitOutil();
  PB1_->Montre();
}

void F_Representation::RendOuverture() {
  ouverture_ = false;
  PB1_->Retient(false);
  commandes_->DessinOuvert(avantOuverture_.dessin);
  commandes_->Active("mnu_Undo", avantOuverture_.annuler);
  commandes_->Active("mnu_Redo", avantOuverture_.refaire);
  titre_ = avantOuverture_.titre;
  Vue = avantOuverture_.vue;
  SuitImage();
  if (std::exchange(outilMontre_, false)) panneau_->Fraisage()->RemplitOutil();
}

// The trees have not followed the change, nor has the panel one that was to be another drawing.
void F_Representation::ChangementRepris() {
  repris_ = true;
  if (ouverture_) {
    RendOuverture();
  } else {
    panneau_->Retrouve();
    panneau_->Fraisage()->SuitOutil();
  }
  vide_->setVisible(TraceInitial.size() < 2);
  alerte_->Suit();
  Parle();
  PB1_->Montre();
}

void F_Representation::DessinOuvert(bool ouvert) {
  if (!ouvert && !ouverture_) {
    const auto permise = [this](const char* nom) { return commandes_->Action(nom)->isEnabled(); };
    avantOuverture_ = {
        permise("mnu_Zoom1"), permise("mnu_Undo"), permise("mnu_Redo"), TravailChange(), titre_, Vue};
    outilMontre_ = false;
  }
  commandes_->DessinOuvert(ouvert);
  ouverture_ = !ouvert;
  PB1_->Retient(ouverture_);
  titre_.clear();
  if (!ouvert) {
    vide_->hide();
    alerte_->hide();
    commandes_->Active("mnu_Undo", false);
    commandes_->Active("mnu_Redo", false);
    return;
  }
  panneau_->OublieDeplacement();
  RelacheOutils();
  SuitOutils();
  Titre();
  SuitImage();
  MontreMateriau();
  mnu_Zoom1(PB1_->Taille());
}

void F_Representation::Titre() {
  constexpr qsizetype Montres = 60;  // characters of a text that may have thousands
  const QString nom = titre_.isEmpty() ? QString::fromStdString(NomDe(FichierCourant)) : titre_.left(Montres);
  const QString programme = QString::fromLatin1(NomProgramme);
  setWindowTitle(nom.isEmpty() ? programme : programme + QStringLiteral(" <-> ") + nom);
  Parle();
}

// The star stands behind the caption, whatever that is.
void F_Representation::Parle() {
  const bool change = TravailChange();
  SB1_->Parle(TexteEtat(change));
  QString titre = windowTitle();
  const QString etoile = QStringLiteral(" *");
  if (titre.endsWith(etoile)) titre.chop(etoile.size());
  setWindowTitle(change ? titre + etoile : titre);
}

void F_Representation::Redessine(bool du) {
  if (du) PB1_->Dessin();
}

void F_Representation::SuitSouris(const SuiteSouris& suite) {
  if (suite.positions) SB1_->Positions(suite.panneaux);
  if (suite.initSeq) {
    panneau_->InitSeq();
    Parle();
  }
  if (suite.outils) SuitOutils();
  if (suite.pageOutil) {
    panneau_->Option1(PageSequence::Fraisage);
    panneau_->Fraisage()->FocusLargeurEncoche();
  }
  if (suite.menu) {
    // Asked for with the keyboard, it opens in the middle of the picture.
    const bool dessus = PB1_->rect().contains(PB1_->mapFromGlobal(QCursor::pos()));
    MenuImage(dessus ? QCursor::pos() : PB1_->mapToGlobal(PB1_->rect().center()));
  }
}

void F_Representation::SuitOutils() {
  commandes_->Coche("mnu_Lever", Souris.mnu_Lever);
  commandes_->Coche("mnu_ZoomSelection", Souris.mnu_ZoomSelection);
  PB1_->SuitOutils();
}

// The buttons of the picture show what is in force; the other picture has nothing of what the tool takes away.
void F_Representation::SuitImage() {
  commandes_->Coche("mnu_Sobre", Regl.DessinSobre);
  commandes_->Coche("mnu_Saignee", Regl.DessinSobre && Regl.DessinSaignee);
  commandes_->Active("mnu_Saignee", Regl.DessinSobre && TraceInitial.size() >= 2);
}

}  // namespace ovelin
