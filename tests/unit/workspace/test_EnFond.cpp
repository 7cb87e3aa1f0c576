// Opening and saving with the kernels on a thread, while this thread looks at the document as a painting window
// does.
#include <atomic>
#include <cmath>
#include <thread>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "tests/support/Support.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;

// What a window does in a round of events: paints the document, asks for a text and a key.
long Regarde() {
  long vus = 0;
  for (const PointTrace& p : TraceInitial) vus += p.X > 0 ? 1 : 0;
  for (const SequenceDecalee& d : TraceDecale) vus += static_cast<long>(d.Points.size());
  for (const SequenceInfo& s : Sequences) vus += s.Selection;
  return vus + static_cast<long>(Traduire("erreurs", "100").size() + LireCle("MRUFiles1", "").size()) + NbPoints;
}

int Rondes = 0;
void OffreDesFils() {
  Rondes = 0;
  Svc.EnFond = [](const std::function<void()>& noyau) {
    std::atomic<bool> fini = false;
    std::thread fil([&] {
      noyau();
      fini = true;
    });
    do {
      Regarde();
      ++Rondes;
    } while (!fini);
    fil.join();
  };
}

// Three wavy contours, the first one large.
std::string Dxf() {
  std::string t = "0\r\nSECTION\r\n2\r\nENTITIES\r\n";
  const int tailles[] = {25000, 400, 30};
  for (int c = 0; c < 3; ++c) {
    t += "0\r\nLWPOLYLINE\r\n8\r\n0\r\n70\r\n1\r\n90\r\n" + std::to_string(tailles[c]) + "\r\n";
    for (int i = 0; i < tailles[c]; ++i) {
      const double a = 2 * M_PI * i / tailles[c];
      const double r = 80 + 8 * std::sin(60 * a);
      t += "10\r\n" + std::to_string(100 + 200 * c + r * std::cos(a)) + "\r\n20\r\n" +
           std::to_string(100 + r * std::sin(a)) + "\r\n";
    }
  }
  return t + "0\r\nENDSEC\r\n0\r\nEOF\r\n";
}

TEST(EnFond, OpensTheSameDrawingBesideAPaintingWindow) {
  const std::string dessin = essai::EcritFichierEssai("grand.dxf", Dxf());
  ASSERT_EQ(mnu_Ouvrir(dessin, OptionsOuverture{}), Ouverture::Reussie);
  const Document direct = Doc;
  ASSERT_GT(direct.TraceInitial.size(), 4000U);
  Doc = Document{};
  OffreDesFils();
  ASSERT_EQ(mnu_Ouvrir(dessin, OptionsOuverture{}), Ouverture::Reussie);
  EXPECT_GT(Rondes, 3);  // line ends, reading, clean-up, offset
  EXPECT_EQ(TraceInitial, direct.TraceInitial);
  EXPECT_EQ(Sequences, direct.Sequences);
  EXPECT_EQ(TraceDecale, direct.TraceDecale);
  EXPECT_EQ(Xmax, direct.Xmax);
}

TEST(EnFond, SavesAndOpensTheSameProjectBesideAPaintingWindow) {
  const std::string dessin = essai::EcritFichierEssai("grand.dxf", Dxf());
  ASSERT_EQ(mnu_Ouvrir(dessin, OptionsOuverture{}), Ouverture::Reussie);
  const Document direct = Doc;
  OffreDesFils();
  const std::string projet = essai::Dossier() + "/grand.OVL";
  ASSERT_EQ(EnregistreProjet(projet), "");
  EXPECT_GT(Rondes, 0);
  Doc = Document{};
  ASSERT_EQ(mnu_Ouvrir(projet, OptionsOuverture{}), Ouverture::Reussie);
  EXPECT_EQ(TraceInitial, direct.TraceInitial);
  EXPECT_EQ(Sequences, direct.Sequences);
  EXPECT_EQ(TraceDecale, direct.TraceDecale);
}

TEST(EnFond, TellsARefusalAsItDoesDirectly) {
  OffreDesFils();
  essai::Attend("F_Representation", "lib115");
  EXPECT_EQ(mnu_Ouvrir(essai::EcritFichierEssai("texte.dxf", "Bonjour\r\n"), OptionsOuverture{}),
            Ouverture::Refusee);
  essai::Attend("F_Representation", "lib110");
  EXPECT_EQ(mnu_Ouvrir(essai::Dossier(), OptionsOuverture{}), Ouverture::Refusee);
}

}  // namespace
