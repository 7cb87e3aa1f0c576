#include "gcode/ui/ToileGL.h"

#include <QGuiApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/ui/Theme.h"
#include "image/Vue.h"
#include "image/ui/PeintScene.h"

namespace ovelin {

namespace {

constexpr int CotesDisque = 32;

// The toolkit supplies the words of precision where the language has none.
constexpr const char* Sommets = R"(
attribute highp vec2 place;
attribute highp vec2 trait;
attribute lowp vec4 encre;
uniform highp vec2 echelle;
varying highp vec2 pointille;
varying lowp vec4 couleur;
void main() {
  gl_Position = vec4(place.x * echelle.x - 1.0, 1.0 - place.y * echelle.y, 0.0, 1.0);
  pointille = trait;
  couleur = encre;
}
)";

constexpr const char* Fragments = R"(
varying highp vec2 pointille;
varying lowp vec4 couleur;
uniform highp float plein;
void main() {
  if (pointille.y > 0.0 && mod(pointille.x, pointille.y) > plein * pointille.y) discard;
  gl_FragColor = couleur;
}
)";

std::uint32_t Rvba(std::int32_t couleur) { return static_cast<std::uint32_t>(couleur) | 0xFF000000U; }

bool ContexteUtile() {
  // Platforms without a screen: nothing is gained there, and a picture is wanted the same everywhere.
  const QString plateforme = QGuiApplication::platformName();
  if (plateforme == QLatin1String("offscreen") || plateforme == QLatin1String("minimal")) return false;
  QOpenGLContext contexte;
  if (!contexte.create()) return false;
  QOffscreenSurface surface;
  surface.setFormat(contexte.format());
  surface.create();
  if (!surface.isValid() || !contexte.makeCurrent(&surface)) return false;
  const bool shaders = contexte.format().majorVersion() >= 2 &&
                       contexte.functions()->hasOpenGLFeature(QOpenGLFunctions::Shaders) &&
                       contexte.functions()->hasOpenGLFeature(QOpenGLFunctions::Buffers);
  contexte.doneCurrent();
  return shaders;
}

}  // namespace

bool ToileGL::Possible() {
  static const bool possible = ContexteUtile();
  return possible;
}

ToileGL::ToileGL(QWidget* parent) : QOpenGLWidget(parent) {
  setObjectName(QStringLiteral("ToileGL"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
}

ToileGL::~ToileGL() {
  makeCurrent();
  tampon_.destroy();
  programme_.removeAllShaders();
  doneCurrent();
}

// Also behind a change of the screen, with a context that knows nothing yet.
void ToileGL::initializeGL() {
  initializeOpenGLFunctions();
  programme_.removeAllShaders();
  const bool lie = programme_.addShaderFromSourceCode(QOpenGLShader::Vertex, Sommets) &&
                   programme_.addShaderFromSourceCode(QOpenGLShader::Fragment, Fragments) && programme_.link();
  tampon_.destroy();
  aCharger_ = true;
  if (!lie || !tampon_.create()) {
    Q_EMIT Echoue();
    return;
  }
  tampon_.setUsagePattern(QOpenGLBuffer::StreamDraw);
}

void ToileGL::Charge(const Scene& scene, const Palette& palette) {
  bouts_.clear();
  papier_ = palette.papier;
  lisse_ = PeutLisser(scene, palette, std::max(1.0, devicePixelRatioF()));
  segments_ = 0;
  for (const Primitive& p : scene.Primitives) {
    const auto points = scene.PointsDe(p);
    if (p.genre == Genre::Ligne) {
      Lignes(p, points, palette);
      segments_ += points.size() - 1;
    } else if (p.genre == Genre::Disque) {
      std::vector<PointEcran> bord;
      for (int i = 0; i <= CotesDisque; ++i) {
        const float a = static_cast<float>(2 * Pi) * static_cast<float>(i) / CotesDisque;
        bord.push_back({points[0].X + p.mesure * std::cos(a), points[0].Y + p.mesure * std::sin(a)});
      }
      Lignes(p, bord, palette);
    }
  }
  aCharger_ = true;
}

void ToileGL::Lignes(const Primitive& p, std::span<const PointEcran> points, const Palette& palette) {
  const Aspect& aspect = palette[p.role];
  const auto motif = MotifDe(aspect.style);
  const float periode = motif.size() == 2 ? motif[0] + motif[1] : 0;
  const std::uint32_t rvba = Rvba(aspect.couleur);
  float chemin = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const PointEcran& a = points[i - 1];
    const PointEcran& b = points[i];
    bouts_.push_back({a.X, a.Y, chemin, periode, rvba});
    if (periode > 0) chemin += std::hypot(b.X - a.X, b.Y - a.Y) / static_cast<float>(TwipsParPixel);
    bouts_.push_back({b.X, b.Y, chemin, periode, rvba});
  }
}

void ToileGL::paintGL() {
  if (Prepare) Prepare();
  const QColor papier = EnCouleur(papier_);
  glClearColor(static_cast<float>(papier.redF()), static_cast<float>(papier.greenF()),
               static_cast<float>(papier.blueF()), 1);
  glClear(GL_COLOR_BUFFER_BIT);
  if (!bouts_.empty() && programme_.isLinked() && tampon_.isCreated()) Traits();
}

void ToileGL::Traits() {
  tampon_.bind();
  if (aCharger_) tampon_.allocate(bouts_.data(), static_cast<int>(bouts_.size() * sizeof(Bout)));
  aCharger_ = false;
  programme_.bind();
  constexpr float Bords = 2;  // from one edge of the picture to the other
  programme_.setUniformValue("echelle", Bords / (static_cast<float>(width()) * static_cast<float>(TwipsParPixel)),
                             Bords / (static_cast<float>(height()) * static_cast<float>(TwipsParPixel)));
  const auto motif = MotifDe(StyleTrait::Pointille);
  programme_.setUniformValue("plein", motif[0] / (motif[0] + motif[1]));
  const auto attribut = [&](const char* nom, GLenum genre, std::size_t decalage, int nombre) {
    const int place = programme_.attributeLocation(nom);
    programme_.enableAttributeArray(place);
    programme_.setAttributeBuffer(place, genre, static_cast<int>(decalage), nombre, sizeof(Bout));
    return place;
  };
  const std::array<int, 3> places{attribut("place", GL_FLOAT, offsetof(Bout, x), 2),
                                  attribut("trait", GL_FLOAT, offsetof(Bout, chemin), 2),
                                  attribut("encre", GL_UNSIGNED_BYTE, offsetof(Bout, rvba), 4)};
  glDisable(GL_DEPTH_TEST);
  glLineWidth(static_cast<float>(std::max(1.0, std::round(devicePixelRatioF()))));
#ifdef GL_LINE_SMOOTH
  const bool lisse = lisse_ && !context()->isOpenGLES();
  if (lisse) {
    glEnable(GL_LINE_SMOOTH);
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE);
  }
#endif
  glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(bouts_.size()));
#ifdef GL_LINE_SMOOTH
  if (lisse) {
    glDisable(GL_LINE_SMOOTH);
    glDisable(GL_BLEND);
  }
#endif
  for (const int place : places) programme_.disableAttributeArray(place);
  programme_.release();
  tampon_.release();
}

}  // namespace ovelin
