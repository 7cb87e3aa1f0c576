// The presets' grid under the hands of the user: the floating editor, keys, clipboard, rows.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QTableWidget>

#include "base/Indices.h"
#include "core/ui/Equivalent.h"
#include "database/ui/F_BD.h"
#include "database/ui/SaisieBD.h"

namespace ovelin {

namespace {

constexpr Qt::KeyboardModifiers Commandes = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool EstEntree(const QKeyEvent& e) { return e.key() == Qt::Key_Return || e.key() == Qt::Key_Enter; }
bool EstTexte(const QKeyEvent& e) {
  return (e.modifiers() & Commandes) == 0 && !e.text().isEmpty() && e.text().at(0).isPrint();
}

}  // namespace

bool F_BD::eventFilter(QObject* objet, QEvent* e) {
  if (objet == txtSaisie_) {
    if (e->type() == QEvent::KeyPress) return ToucheSaisie(static_cast<const QKeyEvent&>(*e));
    if (e->type() == QEvent::FocusOut) {
      // Another window or a menu in front: the entry goes on when the keyboard comes back.
      const auto raison = static_cast<const QFocusEvent*>(e)->reason();
      if (raison != Qt::ActiveWindowFocusReason && raison != Qt::PopupFocusReason) RangeSaisie();
    }
  } else if (objet == MSFlexGrid1_ && e->type() == QEvent::KeyPress) {
    return ToucheGrille(static_cast<const QKeyEvent&>(*e));
  } else if (MSFlexGrid1_ != nullptr && objet == MSFlexGrid1_->viewport() && e->type() == QEvent::Resize) {
    // The grid itself goes on laying itself out during this event: the columns follow after it.
    QMetaObject::invokeMethod(
        this, [this] { Elargit(); }, Qt::QueuedConnection);
    PlaceSaisie();
  } else if (MSFlexGrid1_ != nullptr && objet == MSFlexGrid1_->viewport() && e->type() == QEvent::ContextMenu) {
    const auto& menu = static_cast<const QContextMenuEvent&>(*e);
    if (menu.reason() == QContextMenuEvent::Keyboard) {
      const int ligne = MSFlexGrid1_->currentRow();
      const int colonne = MSFlexGrid1_->currentColumn();
      const QRect place = MSFlexGrid1_->visualRect(MSFlexGrid1_->currentIndex());
      OuvreMenu(ligne, colonne, MSFlexGrid1_->viewport()->mapToGlobal(place.bottomLeft()));
    } else {
      OuvreMenu(MSFlexGrid1_->rowAt(menu.pos().y()), MSFlexGrid1_->columnAt(menu.pos().x()), menu.globalPos());
    }
    return true;
  }
  return QDialog::eventFilter(objet, e);
}

bool F_BD::ToucheSaisie(const QKeyEvent& e) {
  const bool arriere = e.key() == Qt::Key_Backtab;
  if (EstEntree(e) || e.key() == Qt::Key_Tab || arriere) {
    RangeSaisie();
    Avance(!arriere);
    OuvreSaisie(MSFlexGrid1_->currentRow(), MSFlexGrid1_->currentColumn(), Choix::Tout);
    return true;
  }
  if (e.key() == Qt::Key_Escape) {
    AbandonneSaisie();
    return true;
  }
  if (e.key() == Qt::Key_Up || e.key() == Qt::Key_Down) {
    const int ligne = MSFlexGrid1_->currentRow() + (e.key() == Qt::Key_Up ? -1 : 1);
    RangeSaisie();
    if (ligne >= 0 && ligne < MSFlexGrid1_->rowCount()) {
      MSFlexGrid1_->setCurrentCell(ligne, MSFlexGrid1_->currentColumn());
    }
    return true;
  }
  return false;
}

bool F_BD::ToucheGrille(const QKeyEvent& e) {
  const int ligne = MSFlexGrid1_->currentRow();
  const int colonne = MSFlexGrid1_->currentColumn();
  if (ligne < 0 || colonne < 0) return false;
  if (e.matches(QKeySequence::Copy)) {
    Copie();
  } else if (e.matches(QKeySequence::Paste)) {
    Colle();
  } else if (EstEntree(e)) {
    Avance(true);
  } else if (e.key() == Qt::Key_Tab || e.key() == Qt::Key_Backtab) {
    return Avance(e.key() == Qt::Key_Tab);  // at the end the keyboard goes on to the buttons
  } else if (e.key() == Qt::Key_Delete && (e.modifiers() & Commandes) == 0) {
    Pose(ligne, colonne, "");
  } else if (e.key() == Qt::Key_F2) {
    OuvreSaisie(ligne, colonne, Choix::Fin);
  } else if (e.key() == Qt::Key_Backspace) {
    OuvreSaisie(ligne, colonne, Choix::Tout);
  } else if (EstTexte(e)) {
    OuvreSaisie(ligne, colonne, Choix::Tout);
    QKeyEvent touche(QEvent::KeyPress, e.key(), e.modifiers(), e.text());
    QApplication::sendEvent(txtSaisie_, &touche);
  } else {
    return false;
  }
  return true;
}

void F_BD::OuvreSaisie(int ligne, int colonne, Choix choix) {
  if (ligne < 0 || colonne < 0) return;
  RangeSaisie();
  MSFlexGrid1_->setCurrentCell(ligne, colonne);
  MSFlexGrid1_->scrollToItem(MSFlexGrid1_->item(ligne, colonne));
  ligneSaisie_ = ligne;
  colonneSaisie_ = colonne;
  const auto c = base::Indice(colonne);
  txtSaisie_->Numerique(GrilleBD::Numerique(c));
  txtSaisie_->setText(QString::fromStdString(grille_.Cellule(base::Indice(ligne), c)));
  txtSaisie_->setAccessibleName(titres_[c]);
  PlaceSaisie();
  txtSaisie_->show();
  txtSaisie_->raise();
  txtSaisie_->setFocus();
  if (choix == Choix::Tout) {
    txtSaisie_->selectAll();
  } else {
    txtSaisie_->end(false);
  }
}

void F_BD::PlaceSaisie() {
  if (ligneSaisie_ < 0) return;
  const QModelIndex index = MSFlexGrid1_->model()->index(ligneSaisie_, colonneSaisie_);
  txtSaisie_->setGeometry(MSFlexGrid1_->visualRect(index).adjusted(-1, -1, 1, 1));
}

void F_BD::MontreEquivalent() {
  constexpr int Rayon = 1, VitesseH = 5, VitesseV = 6;
  const int colonne = MSFlexGrid1_->currentColumn();
  const int ligne = MSFlexGrid1_->currentRow();
  const bool vitesse = colonne == VitesseH || colonne == VitesseV;
  const bool la = ligne >= 0 && base::Indice(ligne) < grille_.Lignes();
  if (!la || (colonne != Rayon && !vitesse)) return Lbl_Equivalent_->clear();
  const QString texte = ligneSaisie_ >= 0
                            ? txtSaisie_->text()
                            : QString::fromStdString(grille_.Cellule(base::Indice(ligne), base::Indice(colonne)));
  Lbl_Equivalent_->Dit(vitesse ? SorteEquivalent::ParMinute : SorteEquivalent::Diametre, texte);
}

void F_BD::RangeSaisie() {
  if (ligneSaisie_ < 0) return;
  const std::string texte = txtSaisie_->text().toStdString();
  const int ligne = ligneSaisie_;
  const int colonne = colonneSaisie_;
  AbandonneSaisie();
  const auto l = base::Indice(ligne);
  if (texte != grille_.Cellule(l, base::Indice(colonne))) Pose(ligne, colonne, texte);
}

void F_BD::AbandonneSaisie() {
  if (ligneSaisie_ < 0) return;
  ligneSaisie_ = colonneSaisie_ = -1;  // first: hiding takes the keyboard away
  const bool clavier = txtSaisie_->hasFocus();
  txtSaisie_->clear();
  txtSaisie_->hide();
  if (clavier) MSFlexGrid1_->setFocus();
}

bool F_BD::Avance(bool enAvant) {
  const auto ligne = base::Indice(MSFlexGrid1_->currentRow());
  const auto colonne = base::Indice(MSFlexGrid1_->currentColumn());
  const auto place = enAvant ? grille_.Suivante(ligne, colonne) : grille_.Precedente(ligne, colonne);
  if (place == std::pair{ligne, colonne}) return false;
  MSFlexGrid1_->setCurrentCell(base::Compte(place.first), base::Compte(place.second));
  return true;
}

void F_BD::Pose(int ligne, int colonne, const std::string& texte) {
  if (ligne == ligneFaute_ && colonne == colonneFaute_) OteFaute();
  grille_.Pose(base::Indice(ligne), base::Indice(colonne), texte);
  modifiee_ = true;
  MontreLigne(ligne);
  MontreEquivalent();
  while (MSFlexGrid1_->rowCount() < base::Compte(grille_.Lignes())) {
    const int neuve = MSFlexGrid1_->rowCount();
    MSFlexGrid1_->setRowCount(neuve + 1);
    MontreLigne(neuve);
  }
  Elargit();
}

void F_BD::OuvreMenu(int ligne, int colonne, const QPoint& place) {
  if (ligne < 0 || !grille_.EstFiche(base::Indice(ligne))) return;
  RangeSaisie();
  MSFlexGrid1_->setCurrentCell(ligne, std::max(0, colonne));
  mnu_DB_->popup(place);
}

void F_BD::Insere() {
  RangeSaisie();
  const int ligne = MSFlexGrid1_->currentRow();
  if (ligne < 0 || !grille_.Insere(base::Indice(ligne))) return;
  OteFaute();
  modifiee_ = true;
  Remplit();
  MSFlexGrid1_->setCurrentCell(ligne, 0);
}

void F_BD::Supprime() {
  RangeSaisie();
  const int ligne = MSFlexGrid1_->currentRow();
  const int colonne = MSFlexGrid1_->currentColumn();
  if (ligne < 0 || !grille_.Supprime(base::Indice(ligne))) return;
  OteFaute();
  modifiee_ = true;
  Remplit();
  MSFlexGrid1_->setCurrentCell(ligne, colonne);
}

void F_BD::Copie() const {
  const auto ligne = base::Indice(MSFlexGrid1_->currentRow());
  const auto colonne = base::Indice(MSFlexGrid1_->currentColumn());
  QApplication::clipboard()->setText(QString::fromStdString(grille_.Cellule(ligne, colonne)));
}

void F_BD::Colle() {
  Pose(MSFlexGrid1_->currentRow(), MSFlexGrid1_->currentColumn(), QApplication::clipboard()->text().toStdString());
}

}  // namespace ovelin
