// The picture of a program drawn by OpenGL: the same list of lines in the same colours as the painted one.
#pragma once

#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLWidget>
#include <functional>
#include <vector>

#include "image/Palette.h"
#include "image/Scene.h"

namespace ovelin {

// Lies over the picture that would be painted otherwise, and takes none of its mouse. Of a scene it draws lines,
// full and dotted, and the edges of discs; the scene of a program holds nothing else.
class ToileGL : public QOpenGLWidget, protected QOpenGLFunctions {
  Q_OBJECT
 public:
  explicit ToileGL(QWidget* parent);
  ~ToileGL() override;

  // Whether this screen gives a context with shaders (OpenGL 2.0 or ES 2.0). Looked up once; never without a
  // screen.
  static bool Possible();

  // Called before each frame; it gives a new picture by Charge where there is one.
  std::function<void()> Prepare;
  void Charge(const Scene& scene, const Palette& palette);
  // Segments of the frame drawn last, those of the discs not among them.
  [[nodiscard]] std::size_t SegmentsDessines() const { return segments_; }

 Q_SIGNALS:
  // The driver refuses the shaders: nothing will ever be seen here.
  void Echoue();

 protected:
  void initializeGL() override;
  void paintGL() override;

 private:
  // An end of a segment. 20 bytes: the buffer is written anew for each frame while the picture turns.
  struct Bout {
    float x, y;          // twips
    float chemin;        // pixels from the start of the line: where its dots stand
    float periode;       // pixels of a dot and the gap behind it; 0: a full line
    std::uint32_t rvba;  // red in the lowest byte
  };
  void Lignes(const Primitive& p, std::span<const PointEcran> points, const Palette& palette);
  void Traits();

  QOpenGLShaderProgram programme_;
  QOpenGLBuffer tampon_{QOpenGLBuffer::VertexBuffer};
  std::vector<Bout> bouts_;
  std::int32_t papier_ = 0;
  std::size_t segments_ = 0;
  bool lisse_ = false;
  bool aCharger_ = false;
};

}  // namespace ovelin
