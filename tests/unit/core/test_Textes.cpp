#include <algorithm>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

#include "closed/Pathwerk.h"
#include "core/BoiteRefus.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Reglages.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;

template <class T>
concept ATexteAbsent = requires {
  T::TexteAbsent;
};
template <class T>
concept AEcritureRefusee = requires {
  T::EcritureRefusee;
};
template <class... Arguments>
concept MontrePar = requires(Arguments... a) {
  Message(a..., Icone::Critique);
};

// A text has a row or does not compile: no other key can be made into one, and no box takes a key as it is.
static_assert(AEcritureRefusee<Textes> && !ATexteAbsent<Textes>);
static_assert(!std::is_default_constructible_v<CleTexte>);
static_assert(!std::is_constructible_v<CleTexte, const char*, const char*>);
static_assert(!std::is_constructible_v<CleTexte, const char*, const char*, const char*>);
static_assert(MontrePar<CleTexte> && !MontrePar<const char*, const char*>);

TEST(Textes, HoldSectionAndKeyOfTheirRow) {
  EXPECT_EQ(Textes::EcritureRefusee.Section(), "F_Representation");
  EXPECT_EQ(Textes::EcritureRefusee.Cle(), "lib125");
  EXPECT_EQ(Textes::EcritureRefusee.Francais(), "");
  EXPECT_EQ(Textes::BoutonEnregistrer.Francais(), "&Enregistrer");
}

TEST(Textes, StandInTheirListUnderTheirNames) {
  const auto trouve = std::find_if(Textes::Tous.begin(), Textes::Tous.end(),
                                   [](const Textes::Nomme& n) { return n.nom == "EcritureRefusee"; });
  ASSERT_NE(trouve, Textes::Tous.end());
  EXPECT_EQ(trouve->texte, Textes::EcritureRefusee);
}

TEST(Traduire, GivesTheTextOfANameOrItsKey) {
  DossiersProduit.clear();
  essai::EcritFichierEssai("OVELINfr.trad", "[F_Representation]\nlib125=Non\n");
  OublieTraductions();
  EXPECT_EQ(Traduire(Textes::EcritureRefusee), "Non");
  EXPECT_EQ(Traduire(Textes::PoliceInconnue), "lib126");
}

// The numbers of the library are those of the keys.
TEST(TexteErreur, NamesTheTextOfEachNumber) {
  for (std::int32_t numero = -109; numero >= static_cast<std::int32_t>(pathwerk::Erreur::PopplerAbsent); --numero) {
    const auto texte = TexteErreur(numero);
    ASSERT_TRUE(texte) << numero;
    EXPECT_EQ(texte->Section(), "F_Representation");
    EXPECT_EQ(texte->Cle(), "lib" + std::to_string(-numero));
  }
}

TEST(TexteErreur, KnowsNoOtherNumber) {
  for (const std::int32_t numero : {0, 1, 110, -1, -101, -108, -131, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_FALSE(TexteErreur(numero)) << numero;
  }
}

TEST(TexteAvis, NamesTheTextOfEachNumber) {
  for (std::int32_t numero = 131; numero <= 136; ++numero) {
    const auto texte = TexteAvis(static_cast<pathwerk::Avis>(numero));
    ASSERT_TRUE(texte) << numero;
    EXPECT_EQ(texte->Section(), "F_Representation");
    EXPECT_EQ(texte->Cle(), "lib" + std::to_string(numero));
  }
}

TEST(BoiteErreur, ShowsTheKeyOfANumberThatHasNoText) {
  const BoiteMessage boite = BoiteErreur(-777);
  EXPECT_EQ(boite.section, "F_Representation");
  EXPECT_EQ(boite.cle, "lib777");
  EXPECT_EQ(boite.texte, "lib777");
  EXPECT_EQ(boite.icone, Icone::Critique);
  EXPECT_EQ(boite.titre, "OVELIN");
}

TEST(BoiteErreur, ShowsTheTextOfAnErrorOfTheLibrary) {
  const BoiteMessage boite = BoiteErreur(static_cast<std::int32_t>(pathwerk::Erreur::Police));
  EXPECT_EQ(boite.cle, "lib126");
  EXPECT_EQ(boite.texte, "Police inconnue");
}

}  // namespace
