#include "machine/essais/ui/ControlesTable.h"

#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSlider>
#include <algorithm>
#include <cmath>

#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr double NombreMax = 1e6;
constexpr int ElementsMax = 100;
constexpr const char* Coche1 = "1";
constexpr const char* Coche0 = "0";

void ChoisitElement(QComboBox& liste, int index) {
  for (; liste.count() <= index && liste.count() < ElementsMax;) liste.addItem(QString::number(liste.count()));
  liste.setCurrentIndex(index);
}

void Ecrit(QWidget& controle, const std::string& texte) {
  const int valeur = Arrondi32(NombreDuTexte(texte).value_or(0));
  if (auto* champ = qobject_cast<ChampNombre*>(&controle)) champ->Montre(texte);
  if (auto* liste = qobject_cast<QComboBox*>(&controle)) ChoisitElement(*liste, std::max(valeur, 0));
  if (auto* bouton = qobject_cast<QAbstractButton*>(&controle)) bouton->setChecked(valeur != 0);
  if (auto* curseur = qobject_cast<QSlider*>(&controle)) curseur->setValue(valeur);
}

std::string TexteDe(const QWidget& controle) {
  if (const auto* champ = qobject_cast<const ChampNombre*>(&controle)) {
    // What is being typed and is no number yet ("-", ".") never reaches a table.
    const std::string texte = champ->Texte();
    return texte.empty() || EstNumerique(texte) ? texte : champ->TexteEntree();
  }
  if (const auto* liste = qobject_cast<const QComboBox*>(&controle)) return std::to_string(liste->currentIndex());
  if (const auto* bouton = qobject_cast<const QAbstractButton*>(&controle))
    return bouton->isChecked() ? Coche1 : Coche0;
  const auto* curseur = qobject_cast<const QSlider*>(&controle);
  return curseur == nullptr ? "" : std::to_string(curseur->value());
}

}  // namespace

void ControlesTable::Garde(const ChampMachine& champ, QWidget* controle, const QString& bulle) {
  Nomme(controle, QString::fromStdString(champ.Cle()), bulle);
  controles_.emplace_back(champ.Cle(), controle);
}

QWidget* ControlesTable::De(const std::string& cle) const {
  const auto it = std::find_if(controles_.begin(), controles_.end(), [&](const auto& c) { return c.first == cle; });
  return it == controles_.end() ? nullptr : it->second;
}

ChampNombre* ControlesTable::Champ(const ChampMachine& champ, const QString& unite, const QString& bulle) {
  ChampNombre* controle = ovelin::Champ({}, unite, bulle);
  Garde(champ, controle, bulle);
  connect(controle, &ChampNombre::textChanged, this, [this, champ, controle] {
    if (!remplit_) Tape(champ, *controle);
    Q_EMIT Change(controle->objectName());
  });
  connect(controle, &ChampNombre::Quitte, this, [this, champ, controle](bool change) {
    if (change) Quitte(champ, *controle);
  });
  return controle;
}

QComboBox* ControlesTable::Liste(const ChampMachine& champ, const QStringList& elements, const QString& bulle) {
  QComboBox* controle = ovelin::Liste({}, bulle);
  controle->addItems(elements);
  Garde(champ, controle, bulle);
  connect(controle, &QComboBox::currentIndexChanged, this,
          [this, controle] { Q_EMIT Change(controle->objectName()); });
  return controle;
}

QCheckBox* ControlesTable::Coche(const ChampMachine& champ, const QString& texte, const QString& bulle) {
  QCheckBox* controle = ovelin::Coche({}, texte, bulle);
  Garde(champ, controle, bulle);
  connect(controle, &QCheckBox::toggled, this, [this, champ, controle](bool coche) {
    if (!remplit_) SuitCoche(champ.index, coche);
    Q_EMIT Change(controle->objectName());
  });
  return controle;
}

QRadioButton* ControlesTable::Option(const ChampMachine& champ, const QString& texte, const QString& bulle) {
  auto* controle = new QRadioButton(texte);
  Garde(champ, controle, bulle);
  return controle;
}

QSlider* ControlesTable::Curseur(const ChampMachine& champ, int mini, int maxi, const QString& bulle) {
  auto* controle = new QSlider(Qt::Horizontal);
  controle->setRange(mini, maxi);
  controle->setPageStep(1);
  Garde(champ, controle, bulle);
  connect(controle, &QSlider::valueChanged, this, [this, controle] { Q_EMIT Change(controle->objectName()); });
  return controle;
}

void ControlesTable::Tape(const ChampMachine& champ, ChampNombre& controle) {
  const std::string texte = controle.Texte();
  if (texte.empty()) return;
  SuitChamp(champ.index, texte);
  const auto [index, jumeau] = ChampJumeau(champ.index, texte);
  if (index < 0) return;
  const QScopedValueRollback<bool> garde(remplit_, true);  // the twin does not answer
  Pose(*ChercheChamp(champ.famille, index), jumeau);
}

void ControlesTable::Quitte(const ChampMachine& champ, ChampNombre& controle) {
  const std::string texte = controle.Texte();
  if (texte.empty()) return;
  const auto valeur = NombreDuTexte(texte);
  if (!valeur || *valeur < 0 || *valeur > NombreMax) {
    controle.Refuse(TexteQt(Textes::ChampHorsLimites));
    controle.Restitue();
    return;
  }
  controle.Accepte();
  const QScopedValueRollback<bool> garde(remplit_, true);  // a format is no entry
  controle.Montre(FormateChamp(champ.famille, champ.index, texte));
}

void ControlesTable::Montre(const ChampsTable& champs) {
  const QScopedValueRollback<bool> garde(remplit_, true);
  for (const auto& [cle, texte] : champs) {
    QWidget* controle = De(cle);
    if (controle == nullptr) continue;
    if (auto* champ = qobject_cast<ChampNombre*>(controle)) champ->Accepte();
    Ecrit(*controle, texte);
  }
}

ChampsTable ControlesTable::Lit() const {
  ChampsTable champs;
  for (const auto& [cle, controle] : controles_) champs.emplace_back(cle, TexteDe(*controle));
  return champs;
}

std::string ControlesTable::Texte(const ChampMachine& champ) const {
  const QWidget* controle = De(champ.Cle());
  return controle == nullptr ? "" : TexteDe(*controle);
}

void ControlesTable::Pose(const ChampMachine& champ, const std::string& texte) {
  if (QWidget* controle = De(champ.Cle())) Ecrit(*controle, texte);
}

}  // namespace ovelin
