// The picture `PB1`: shows the document, takes the mouse.
//
// What was drawn is kept: painting only copies it and puts the marks of the moment on top, so that the document is
// walked once for each Dessin and never for a window that comes to the front.
#pragma once

#include <QImage>
#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <array>
#include <vector>

#include "image/Palette.h"
#include "image/SceneDocument.h"
#include "workspace/Module_Souris.h"
#include "workspace/ui/prise/ImagePrise.h"
#include "workspace/ui/prise/Survol.h"

namespace ovelin {

class ImagePB1 : public QWidget {
  Q_OBJECT
 public:
  explicit ImagePB1(QWidget* parent = nullptr);

  // Its texts in the language in force.
  void Traduit();
  // Inner size, twips.
  [[nodiscard]] TailleImage Taille() const;
  // The buttons mnu_NumPoint and mnu_Sequence; a Dessin shows the change.
  void NumPoint(bool montre) { numPoint_ = montre; }
  void NumSequence(bool montre) { sequence_ = montre; }

  // The whole picture anew, then the snapshot of undo. While another one or a pass runs it is put off, and comes
  // once when that is over. Before the first showing it waits for that. Without points the paper is left empty and
  // no snapshot is taken.
  void Dessin();
  [[nodiscard]] bool DessinEnCours() const { return enCours_; }
  // The picture at once, also while a pass runs, and no snapshot: the drawing of a change whose tool path is on its
  // way, that of an opening too, or what is in force behind a change that was taken back. The view is the caller's.
  void Montre();
  // While a drawing is being opened: what is shown stays but for Montre, no Dessin, no layout. A size that has
  // changed meanwhile is taken over afterwards.
  void Retient(bool retient);
  // A cross at a point of the drawing, until the next Dessin.
  void Croix(const PointTrace& point);
  // The running tool at (x, y), mm, over the picture; shown with the flag of the tool display.
  void PositionOutil(float x, float y);
  // A way that the run has cut, mm, over the picture; seen with the next painting. It stays through every Dessin
  // until it is effaced.
  void AjouteRun(float x0, float y0, float x1, float y1);
  void EffaceRun();
  // Pointer of the tool in force: to be called when a button of the tools was pressed.
  void SuitOutils();
  // A changed size is taken over at once instead of when it has settled.
  void MetEnPage();
  // What is shown, in pixels of the device.
  [[nodiscard]] QImage Image() const;

 Q_SIGNALS:
  // After each event of the mouse that left something to do. With `redessine` the picture has been redrawn already;
  // while it is dragged or zoomed by the wheel the redrawing of several movements comes together.
  void Suite(const ovelin::SuiteSouris& suite);
  // After the snapshot of a Dessin: whether mnu_Undo is enabled.
  void Instantane(bool boutonAnnuler);
  // A changed size has been taken over and redrawn.
  void MisEnPage();

 protected:
  bool event(QEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void showEvent(QShowEvent* e) override;
  void changeEvent(QEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void wheelEvent(QWheelEvent* e) override;
  void contextMenuEvent(QContextMenuEvent* e) override;
  void enterEvent(QEnterEvent* e) override;
  void leaveEvent(QEvent* e) override;
  void focusInEvent(QFocusEvent* e) override;

 private:
  [[nodiscard]] OptionsScene Options() const;
  void Peint();  // the retained picture, without a snapshot
  void PeintDessus(QPainter& peintre) const;
  void PlaceLegende(const OptionsScene& options, const Palette& couleurs);
  void MontreOutil();
  void PeintRun(QPainter& peintre);
  void Differe();
  void Acheve();  // the redrawing that movements have left
  void Conclut(const SuiteSouris& suite, bool attend);
  [[nodiscard]] QRect RectBande() const;
  void MontreSurvol();

  bool numPoint_ = false, sequence_ = false;
  bool enCours_ = false;  // a Dessin runs
  bool retenue_ = false;  // a drawing is being opened
  bool demande_ = false;  // one was wished before the first showing
  bool differe_ = false;  // one comes after
  bool dessine_ = false;  // a drawing is shown
  bool clavier_ = false;  // the focus has come by the keyboard
  QImage image_;
  Scene scene_;  // memory kept from one Dessin to the next
  Scene croix_, outil_, survole_;
  Survol survol_;
  mutable ImagePrise prise_;
  std::vector<std::array<float, 4>> run_;  // ways of the run, mm
  std::size_t runPeint_ = 0;               // of these, in `calque_`
  QImage calque_;                          // the line of the run in the view of `image_`; null without one
  QRect bande_;                            // where the rubber band was painted
  QSize misEnPage_;                        // size taken over last
  QTimer taille_;                          // runs until the size has settled
  QTimer suite_;                           // of no length: the movements that are waiting come first
  QLabel *dessin_, *decalage_;
};

}  // namespace ovelin
