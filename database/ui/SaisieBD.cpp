#include "database/ui/SaisieBD.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <algorithm>

#include "core/ui/ChampNombre.h"
#include "core/ui/Theme.h"

namespace ovelin {

SaisieBD::SaisieBD(QWidget* parent) : QLineEdit(parent) {
  setObjectName(QStringLiteral("txtSaisie"));
  setFrame(true);
  setProperty("placeLibre", true);
  hide();
}

void SaisieBD::Numerique(bool numerique) {
  numerique_ = numerique;
  setAlignment(numerique ? Qt::AlignRight : Qt::AlignLeft);
  static const QRegularExpression Nombre(QStringLiteral("[-0-9.,]*"));
  delete validator();
  setValidator(numerique ? new QRegularExpressionValidator(Nombre, this) : nullptr);
}

void SaisieBD::keyPressEvent(QKeyEvent* e) {
  const QString touche = e->text();
  const bool commande = (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  if (!numerique_ || commande || touche.isEmpty() || !touche.at(0).isPrint()) return QLineEdit::keyPressEvent(e);
  QString reste = text();
  if (hasSelectedText()) reste.remove(selectionStart(), selectedText().size());
  reste.replace(QLatin1Char('.'), QLatin1Char(','));
  const QString passe = FiltreTouche(touche, reste, ',');
  if (!passe.isEmpty()) insert(passe);
  e->accept();
}

int CellulesBD::Largeur(const QTableWidget& grille, int colonne) {
  int largeur = 0;
  for (int ligne = 0; ligne < grille.rowCount(); ++ligne) {
    const QTableWidgetItem* cellule = grille.item(ligne, colonne);
    if (cellule != nullptr) largeur = std::max(largeur, grille.fontMetrics().horizontalAdvance(cellule->text()));
  }
  return largeur + 10;
}

void CellulesBD::paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyledItemDelegate::paint(p, option, index);
  if (!index.data(RoleFaute).toBool()) return;
  p->save();
  p->setPen(QPen(CouleurLisible(QColor(200, 30, 30), option.palette.color(QPalette::Base)), 2));
  p->drawRect(option.rect.adjusted(1, 1, -2, -2));
  p->restore();
}

}  // namespace ovelin
