#include "workspace/ui/AlerteCourse.h"

#include <QEvent>
#include <QHBoxLayout>
#include <algorithm>

#include "core/DocumentCourant.h"
#include "core/ui/Fabrique.h"
#include "workspace/Module_Image.h"

namespace ovelin {

namespace {

constexpr int Marge = 8;  // pixels from the edge of the picture
constexpr int LargeurMax = 620;

}  // namespace

AlerteCourse::AlerteCourse(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame_HorsCourse"));
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setAutoFillBackground(true);
  auto* rangee = new QHBoxLayout(this);
  rangee->setContentsMargins(10, 6, 6, 6);
  rangee->setSpacing(10);
  texte_ = Phrase(QStringLiteral("Lbl_HorsCourse"), QString(), this);
  texte_->setProperty("valeur", true);
  bouton_ = Bouton(
      QStringLiteral("CB_PlaceCoin"), QStringLiteral("Placer dans le coin"),
      QStringLiteral("Déplacer tout le dessin : le trajet de l'outil vient dans la course de la machine"), this);
  bouton_->setAutoDefault(false);
  rangee->addWidget(texte_, 1);
  rangee->addWidget(bouton_);
  connect(bouton_, &QPushButton::clicked, this, &AlerteCourse::Place);
  parent->installEventFilter(this);
  hide();
}

void AlerteCourse::Suit() {
  const std::string texte = TraceInitial.size() < 2 ? std::string() : TexteDepassement(DepassementCourant());
  texte_->setText(QString::fromStdString(texte));
  if (!texte.empty()) Dispose();
  setVisible(!texte.empty());
}

void AlerteCourse::EnRun(bool enRun) { bouton_->setEnabled(!enRun); }

// As wide as the text likes, no wider than the picture; as high as it then needs. Below the two lines that say what
// the picture shows.
void AlerteCourse::Dispose() {
  const QRect place = parentWidget()->rect().adjusted(Marge, Marge, -Marge, -Marge);
  const int autour = sizeHint().width() - texte_->sizeHint().width();
  const int voulue = texte_->fontMetrics().horizontalAdvance(texte_->text()) + autour + Marge;
  const int largeur = std::min({std::max(voulue, bouton_->sizeHint().width()), place.width(), LargeurMax});
  const int hauteur = std::max(heightForWidth(largeur), minimumSizeHint().height());
  setGeometry(place.left() + (place.width() - largeur) / 2, place.top() + 2 * fontMetrics().lineSpacing(), largeur,
              hauteur);
  raise();
}

bool AlerteCourse::eventFilter(QObject* objet, QEvent* e) {
  if (objet == parent() && e->type() == QEvent::Resize && !isHidden()) Dispose();
  return QFrame::eventFilter(objet, e);
}

}  // namespace ovelin
