// A numeric field: key filter, decimal mark, unit, refusal shown at the field.
#pragma once

#include <QLineEdit>
#include <QString>

namespace ovelin {

class ChampNombre : public QLineEdit {
  Q_OBJECT
 public:
  // `unite` stands inside the field behind the number ("mm", "mm/s", "%", "°"); "" for none.
  explicit ChampNombre(const QString& nom, const QString& unite = {}, QWidget* parent = nullptr);

  // Text without and with a change of what counts as "entered": the text on entry is the one restored by Restitue.
  void Montre(const std::string& texte);
  [[nodiscard]] std::string Texte() const;
  [[nodiscard]] std::string TexteEntree() const { return entree_; }
  void Restitue();  // the text remembered on entry comes back

  // The entry is refused: red frame, the reason as tool tip and in a small bubble under the field until the next
  // key, `Accepte` or another refusal. Accessible description carries it as well.
  void Refuse(const QString& raison);
  void Accepte();
  [[nodiscard]] bool EstRefuse() const { return refuse_; }

 Q_SIGNALS:
  // The field is left, or Enter was pressed. `change`: the text differs from the one on entry. After an Enter the
  // text counts as entered anew, so that leaving the field doesn't say it twice.
  void Quitte(bool change);

 protected:
  void keyPressEvent(QKeyEvent* e) override;
  void focusInEvent(QFocusEvent* e) override;
  void focusOutEvent(QFocusEvent* e) override;
  void paintEvent(QPaintEvent* e) override;

 private:
  QString unite_;
  std::string entree_;
  bool refuse_ = false;
};

// A key through the numeric filter ("0123456789-.," and backspace): "." and "," become the user's decimal mark, or
// nothing when the field holds one already outside its selection. Empty: the key is dropped.
QString FiltreTouche(const QString& touche, const QString& texteReste, char marque);

}  // namespace ovelin
