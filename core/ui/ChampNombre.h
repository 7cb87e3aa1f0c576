// A numeric field: key filter, decimal mark, unit, refusal shown at the field.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QString>

class QLabel;

namespace ovelin {

class ChampNombre : public QLineEdit {
  Q_OBJECT
 public:
  // `unite` stands inside the field behind the number ("mm", "mm/s", "%", "°"); "" for none.
  explicit ChampNombre(const QString& nom, const QString& unite = {}, QWidget* parent = nullptr);
  ~ChampNombre() override;

  // Digits and "-" alone pass.
  void EntierSeul() { entier_ = true; }

  // Shows a value of the program; it counts as the text on entry from then on, so that leaving the field after it
  // is no change. A refusal stays. What was typed before is taken over: a key of undo means the drawing from now
  // on, and the typing again once there is something new.
  void Montre(const std::string& texte);
  [[nodiscard]] std::string Texte() const;
  [[nodiscard]] std::string TexteEntree() const { return entree_; }
  void Restitue();  // the text remembered on entry comes back

  // The entry is refused: red frame, the reason as tool tip and in a small bubble under the field until the next
  // key, `Accepte` or another refusal. Accessible description carries it as well. The bubble goes with the next key
  // or press anywhere, so that it never stays over a neighbour.
  void Refuse(const QString& raison);
  void Accepte();
  [[nodiscard]] bool EstRefuse() const { return refuse_; }

 Q_SIGNALS:
  // The field is left, or Enter was pressed. `change`: the text differs from the one on entry. After an Enter the
  // text counts as entered anew, so that leaving the field doesn't say it twice. A press on a control that doesn't
  // take the keyboard (a tool bar) and a shortcut say a change first, so that no command runs on an old value.
  void Quitte(bool change);
  // Enter was pressed, behind `Quitte`.
  void Entree();

 protected:
  bool event(QEvent* e) override;
  bool eventFilter(QObject* objet, QEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void focusInEvent(QFocusEvent* e) override;
  void focusOutEvent(QFocusEvent* e) override;
  void hideEvent(QHideEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  void DitQuitte(bool memeInchange);
  void OublieFrappe();
  [[nodiscard]] QString Filtre(const QString& texte, const QString& reste) const;
  void Colle(const QString& texte);
  void FiltreSaisie(const QString& texte);
  void PlaceUnite();
  void MontreBulle(const QString& raison);
  void OteBulle();

  QString unite_;
  QString info_;         // tool tip and description without a refusal
  QString description_;  //
  QPointer<QLabel> bulle_;
  std::string entree_;
  bool entier_ = false;
  bool refuse_ = false;
  bool dit_ = false;  // inside `Quitte`: a box of its handler takes the keyboard and must not say it again
};

// What a field holds is shown, not entered: no frame, no ground, no change; it can still be copied.
void MontreSeulement(QLineEdit& champ);

// A key through the numeric filter (`TouchesNumeriques`): "." and "," become the user's decimal mark, or
// nothing when the field holds one already outside its selection. Empty: the key is dropped.
QString FiltreTouche(const QString& touche, const QString& texteReste, char marque);

}  // namespace ovelin
