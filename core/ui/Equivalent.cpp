#include "core/ui/Equivalent.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <cmath>
#include <string>

#include "core/Nombres.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr double SecondesParMinute = 60;

QString Usuel(SorteEquivalent sorte) {
  return sorte == SorteEquivalent::Diametre ? QStringLiteral("Ø 00.00") : QStringLiteral("0000 mm/min");
}

}  // namespace

QString TexteEquivalent(SorteEquivalent sorte, const QString& texte) {
  const std::string t = texte.trimmed().toStdString();
  const auto v = NombreDuTexte(t.substr(0, t.find_first_not_of(TouchesNumeriques)));
  if (!v || *v < 0) return {};
  if (sorte == SorteEquivalent::Diametre) {
    return QStringLiteral("Ø ") + QString::fromStdString(Formate(2 * *v, "0.0##"));
  }
  const double parMinute = std::round(*v * SecondesParMinute * 10) / 10;
  return QString::fromStdString(TexteNombre(parMinute)) + QStringLiteral(" mm/min");
}

Equivalent::Equivalent(const QString& nom, QWidget* parent) : QLabel(parent) {
  setObjectName(nom);
  setProperty("valeur", true);
  setTextFormat(Qt::PlainText);
  Grise();
}

void Equivalent::Suit(QLineEdit& champ, SorteEquivalent sorte) {
  setMinimumWidth(fontMetrics().horizontalAdvance(Usuel(sorte)));
  Dit(sorte, champ.text());
  connect(&champ, &QLineEdit::textChanged, this, [this, sorte](const QString& texte) { Dit(sorte, texte); });
}

// Its own grey of the palette that it inherits: a palette of its own would keep that of another theme.
void Equivalent::Grise() {
  const QColor gris = GrisLisible(palette().color(QPalette::Window));
  if (palette().color(QPalette::WindowText) == gris) return;
  QPalette grise;
  grise.setColor(QPalette::WindowText, gris);
  setPalette(grise);
}

void Equivalent::changeEvent(QEvent* e) {
  QLabel::changeEvent(e);
  if (e->type() == QEvent::PaletteChange) Grise();
}

Equivalent* EquivalentDe(QLineEdit& champ, SorteEquivalent sorte) {
  QString nom = champ.objectName();
  if (nom.startsWith(QLatin1String("TB_"))) nom.remove(0, 3);
  auto* equivalent = new Equivalent(QStringLiteral("Lbl_Eq_") + nom);
  equivalent->Suit(champ, sorte);
  return equivalent;
}

QWidget* AvecEquivalent(QLineEdit* champ, SorteEquivalent sorte) {
  auto* cadre = new QWidget;
  auto* rangee = new QHBoxLayout(cadre);
  rangee->setContentsMargins(0, 0, 0, 0);
  rangee->setSpacing(4);
  rangee->addWidget(champ, 1);
  rangee->addWidget(EquivalentDe(*champ, sorte));
  return cadre;
}

}  // namespace ovelin
