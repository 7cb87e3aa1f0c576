// The controls of the fields of a table: each is made here by the row of its field, under the field's key as its
// name.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <string>
#include <utility>
#include <vector>

#include "machine/ChampsTable.h"

class QCheckBox;
class QComboBox;
class QRadioButton;
class QSlider;
class QWidget;

namespace ovelin {

class ChampNombre;

class ControlesTable : public QObject {
  Q_OBJECT
 public:
  explicit ControlesTable(QObject* parent) : QObject(parent) {}

  // A numeric field. While it is typed its twin and its global follow; left, it takes the format of its row. An
  // empty field is left as it is, a number that a table can't hold is refused and the one before comes back.
  ChampNombre* Champ(const ChampMachine& champ, const QString& unite, const QString& bulle);
  // A list of these items. What is stored is the index; one beyond the last item adds items up to it.
  QComboBox* Liste(const ChampMachine& champ, const QStringList& elements, const QString& bulle);
  QCheckBox* Coche(const ChampMachine& champ, const QString& texte, const QString& bulle);
  QRadioButton* Option(const ChampMachine& champ, const QString& texte, const QString& bulle);
  QSlider* Curseur(const ChampMachine& champ, int mini, int maxi, const QString& bulle);

  // All controls from a table, and back. Neither counts as typing.
  void Montre(const ChampsTable& champs);
  [[nodiscard]] ChampsTable Lit() const;
  [[nodiscard]] std::string Texte(const ChampMachine& champ) const;
  void Pose(const ChampMachine& champ, const std::string& texte);

 Q_SIGNALS:
  // A control has another value, whoever has given it.
  void Change(const QString& cle);

 private:
  void Garde(const ChampMachine& champ, QWidget* controle, const QString& bulle);
  void Tape(const ChampMachine& champ, ChampNombre& controle);
  void Quitte(const ChampMachine& champ, ChampNombre& controle);
  [[nodiscard]] QWidget* De(const std::string& cle) const;

  std::vector<std::pair<std::string, QWidget*>> controles_;  // in the order of making
  bool remplit_ = false;                                     // nobody types
};

}  // namespace ovelin
