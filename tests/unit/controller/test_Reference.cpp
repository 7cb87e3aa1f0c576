// Every byte of a record against a second reading of its description, in Python (reference_records.py).
#include <gtest/gtest.h>

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "controller/Mouvement.h"
#include "tests/places/Lieux.h"

namespace {

using namespace ovelin;

struct Ferme {
  void operator()(std::FILE* f) const { pclose(f); }
};

class Flot {
 public:
  explicit Flot(const std::string& commande) : f_(popen(commande.c_str(), "r")) {}
  template <class T>
  bool Lit(T& valeur) {
    return f_ && std::fread(&valeur, sizeof valeur, 1, f_.get()) == 1;
  }

 private:
  std::unique_ptr<std::FILE, Ferme> f_;
};

struct Ligne {
  std::array<double, 3> transmission{};
  std::array<std::int32_t, 3> tour{};
  std::array<double, 3> depart{};
  std::array<float, 3> maxi{};
  std::array<std::int32_t, 3> pas{};
  float v = 0, vTenue = 0, t = 0;
  std::array<std::uint8_t, OctetsRecordRampe> octets{};
};
bool Lit(Flot& f, Ligne& l) {
  return f.Lit(l.transmission) && f.Lit(l.tour) && f.Lit(l.depart) && f.Lit(l.maxi) && f.Lit(l.pas) && f.Lit(l.v) &&
         f.Lit(l.vTenue) && f.Lit(l.t) && f.Lit(l.octets);
}

// Empty when the record is the same, else what was asked for.
std::string Ecart(CalculMouvement& calcul, const Ligne& l) {
  LimitesAxes axes;
  for (std::size_t i = 0; i < 3; ++i) {
    axes.MmParPas[i] = l.transmission[i] / l.tour[i];
    axes.VitesseDepart[i] = static_cast<float>(l.depart[i]);
  }
  axes.VitesseMax = l.maxi;
  const Mouvement m = calcul.Calcule(axes, l.pas, l.v);
  zenikcom::TamponOctets t{};
  ComposeRecord(m, t);
  const bool octets = std::memcmp(t.data() + 2, l.octets.data(), l.octets.size()) == 0;
  if (octets && m.V == l.vTenue && static_cast<float>(m.T) == l.t) return "";
  return std::to_string(l.pas[0]) + " " + std::to_string(l.pas[1]) + " " + std::to_string(l.pas[2]) + " at " +
         std::to_string(l.v) + (octets ? ": speed or duration" : ": bytes");
}

// All multipliers have their turn; those that a table offers the longer one. OVELIN_REFERENCE_ALL: 500 rows each.
TEST(Records, AreThoseOfASecondReadingOfTheirDescription) {
  static_assert(std::endian::native == std::endian::little);
  const bool tous = std::getenv("OVELIN_REFERENCE_ALL") != nullptr;
  Flot flot("python3 '" + essai::DossierSource() + "/tests/unit/controller/reference_records.py' 500 " +
            std::string(tous ? "500" : "4") + " 1,2,6,10");
  int blocs = 0;
  std::int32_t multiplicateur = 0;
  while (flot.Lit(multiplicateur)) {
    std::int32_t pente = 0, lignes = 0;
    ASSERT_TRUE(flot.Lit(pente) && flot.Lit(lignes));
    CalculMouvement calcul(multiplicateur, 1 << (9 + pente));
    for (int i = 0; i < lignes; ++i) {
      Ligne l;
      ASSERT_TRUE(Lit(flot, l));
      ASSERT_EQ(Ecart(calcul, l), "") << "multiplier " << multiplicateur << " slope " << pente;
    }
    ++blocs;
  }
  EXPECT_EQ(blocs, 255 * 9) << "python3 is needed";
}

}  // namespace
