// What a number is in the other figure that people of the trade speak of, in grey beside its field.
#pragma once

#include <QLabel>
#include <QString>
#include <cstdint>

class QLineEdit;

namespace ovelin {

enum class SorteEquivalent : std::uint8_t {
  Diametre,   // of a radius in mm: "Ø 6.0"
  ParMinute,  // of a speed in mm/s: "600 mm/min"
};

// In the user's number format; "" for a text that doesn't begin with a number, and for one below 0. A unit behind
// the number is passed over.
QString TexteEquivalent(SorteEquivalent sorte, const QString& texte);

// A label that is empty until it follows a field or is told a text.
class Equivalent : public QLabel {
  Q_OBJECT
 public:
  explicit Equivalent(const QString& nom, QWidget* parent = nullptr);
  // Says what stands in `champ`, from now on and while it is typed. The room of a usual figure is kept free, so
  // that nothing moves under the hands.
  void Suit(QLineEdit& champ, SorteEquivalent sorte);
  void Dit(SorteEquivalent sorte, const QString& texte) { setText(TexteEquivalent(sorte, texte)); }

 protected:
  void changeEvent(QEvent* e) override;

 private:
  void Grise();
};

// The hint of a field, named behind it ("TB_Vitesse" gives "Lbl_Eq_Vitesse").
Equivalent* EquivalentDe(QLineEdit& champ, SorteEquivalent sorte);
// Field and hint as one part of a layout.
QWidget* AvecEquivalent(QLineEdit* champ, SorteEquivalent sorte);

}  // namespace ovelin
