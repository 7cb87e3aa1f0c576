// What every way to a board has in common, and what each adds.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "closed/zenikcom/LiaisonUsb.h"
#include "tests/unit/closed/zenikcom/Banc.h"
#include "tests/unit/closed/zenikcom/Uhid.h"

namespace {

using namespace essai;
using zenikcom::AppareilUsb;
using zenikcom::FonctionsHid;
using zenikcom::IdentiteUsb;
using zenikcom::Liaison;
using zenikcom::Refus;

const IdentiteUsb Identite{0x1234, 0xABCD};

// A HID device with a virtual board inside.
struct HidEssai {
  std::int64_t heure = 0;
  bool branche = true, accessible = true, muet = false, ecritureCasse = false, lectureCassee = false;
  int recherches = 0, ouverts = 0, fermes = 0;
  std::vector<int> attentes;  // ms, of each reading
  std::vector<std::vector<std::uint8_t>> ecrits;
  std::deque<std::vector<std::uint8_t>> file;  // replies that wait
  std::int64_t dureeEcriture = 0;
  std::shared_ptr<zenikcom::CarteVirtuelle> carte = zenikcom::CreeCarteVirtuelle({.rapide = true});

  FonctionsHid Fonctions() {
    FonctionsHid hid;
    hid.liste = [this](IdentiteUsb identite) {
      ++recherches;
      std::vector<AppareilUsb> liste;
      if (branche && identite == Identite) liste.push_back({identite, "/dev/hidraw7", "", "", ""});
      return liste;
    };
    hid.ouvre = [this](const std::string& chemin) -> void* {
      if (!accessible || chemin != "/dev/hidraw7") return nullptr;
      ++ouverts;
      return this;
    };
    hid.ferme = [this](void*) { ++fermes; };
    hid.ecrit = [this](void*, const std::uint8_t* octets, std::size_t n) {
      if (!branche || ecritureCasse) return -1;
      heure += dureeEcriture;
      ecrits.emplace_back(octets, octets + n);
      TamponOctets t{};
      std::copy_n(octets, std::min(n, t.size()), t.begin());
      carte->Echange(t);
      if (!muet) file.emplace_back(t.begin() + 1, t.end());
      return static_cast<int>(n);
    };
    hid.lit = [this](void*, std::uint8_t* octets, std::size_t n, int ms) {
      attentes.push_back(ms);
      if (!branche || (lectureCassee && ms > 0)) return -1;
      if (file.empty()) {
        heure += ms * Ms;
        return 0;
      }
      const std::size_t lus = std::min(n, file.front().size());
      std::copy_n(file.front().begin(), lus, octets);
      file.pop_front();
      return static_cast<int>(lus);
    };
    return hid;
  }
  std::unique_ptr<Liaison> Lie() {
    return zenikcom::LiaisonUsb(
               Identite, "", [this] { return heure; }, Fonctions())
        .liaison;
  }
};

class Contrat : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    switch (GetParam()) {
      case 0:
        liaison_ = hid_.Lie();
        branche_ = [this](bool b) {
          hid_.branche = b;
          hid_.heure += 2 * Seconde;
        };
        break;
      case 1:
        liaison_ = zenikcom::LiaisonBibliotheque(ZENIK_ESSAI, "").liaison;
        branche_ = [](bool b) {
          if (b) {
            unsetenv("ZENIK_ESSAI_DEBRANCHEE");
          } else {
            setenv("ZENIK_ESSAI_DEBRANCHEE", "1", 1);
          }
        };
        break;
      case 2:
        liaison_ = zenikcom::LiaisonVirtuelle(hid_.carte);
        branche_ = [this](bool b) { hid_.carte->Debranche(!b); };
        break;
      default:
        if (const std::string raison = AppareilUhid::Raison(); !raison.empty()) GTEST_SKIP() << raison;
        uhid_ = std::make_unique<AppareilUhid>(Identite, hid_.carte);
        liaison_ = zenikcom::LiaisonUsb(Identite, "", [this] { return hid_.heure; }).liaison;
        branche_ = [this](bool b) {
          hid_.heure += 2 * Seconde;
          if (b == (uhid_ != nullptr)) return;
          uhid_ = b ? std::make_unique<AppareilUhid>(Identite, hid_.carte) : nullptr;
        };
        break;
    }
    ASSERT_NE(liaison_, nullptr);
  }
  void TearDown() override {
    if (branche_) branche_(true);
  }

  HidEssai hid_;
  std::unique_ptr<AppareilUhid> uhid_;
  std::unique_ptr<Liaison> liaison_;
  std::function<void(bool)> branche_;
};

TEST_P(Contrat, SaysOneWhileTheBoardIsThere) {
  EXPECT_EQ(liaison_->EstConnectee(), 1);
  branche_(false);
  TamponOctets t = Requete('I');
  std::int32_t mode = 0;
  liaison_->Envoie(t, mode);
  EXPECT_NE(liaison_->EstConnectee(), 1);
  branche_(true);
  EXPECT_EQ(liaison_->EstConnectee(), 1);
}

TEST_P(Contrat, TheReplyStandsWhereTheRequestWas) {
  TamponOctets t = Requete('B', {1});
  std::int32_t mode = 0;
  ASSERT_EQ(liaison_->Envoie(t, mode), zenikcom::Reussi);
  t = Motion({.ticks = 10, .x = 1});
  mode = 1;
  ASSERT_EQ(liaison_->Envoie(t, mode), zenikcom::Reussi);
  EXPECT_EQ(t[1], 'D');
  EXPECT_EQ(t[2], 1);
  EXPECT_EQ(mode, 1);
}

TEST_P(Contrat, AFailedExchangeLeavesTheBufferAsItWas) {
  branche_(false);
  TamponOctets t{};
  for (std::size_t i = 0; i < t.size(); ++i) t[i] = static_cast<std::uint8_t>(3 * i);
  const TamponOctets avant = t;
  std::int32_t mode = 0;
  const std::int32_t resultat = liaison_->Envoie(t, mode);
  EXPECT_NE(resultat, zenikcom::Reussi);
  EXPECT_NE(resultat, zenikcom::NonVerrouille) << "these two have a box of their own";
  EXPECT_NE(resultat, zenikcom::TropPetit);
  EXPECT_EQ(t, avant);
}

TEST_P(Contrat, ClosedItCanBeAskedAgain) {
  liaison_->Ferme();
  liaison_->Ferme();
  EXPECT_EQ(liaison_->EstConnectee(), 1);
  TamponOctets t = Requete('I');
  std::int32_t mode = 0;
  EXPECT_EQ(liaison_->Envoie(t, mode), zenikcom::Reussi);
}

TEST_P(Contrat, TheBoardReadsZeroInByteZero) {
  TamponOctets t = Requete('I');
  t[0] = 99;
  std::int32_t mode = 0;
  EXPECT_EQ(liaison_->Envoie(t, mode), zenikcom::Reussi);
  if (GetParam() == 0) {
    EXPECT_EQ(hid_.ecrits.back()[0], 0) << "the number of the report";
  }
}

std::string NomSorte(const testing::TestParamInfo<int>& sorte) {
  return std::array{"Usb", "Bibliotheque", "Virtuelle", "Uhid"}[static_cast<std::size_t>(sorte.param)];
}

INSTANTIATE_TEST_SUITE_P(Liaisons, Contrat, testing::Values(0, 1, 2, 3), NomSorte);

TEST(LiaisonUsb, SendsTheReportNumberAndThirtySixBytes) {
  HidEssai h;
  const auto liaison = h.Lie();
  TamponOctets t{};
  for (std::size_t i = 1; i < t.size(); ++i) t[i] = static_cast<std::uint8_t>(i);
  std::int32_t mode = 0;
  liaison->Envoie(t, mode);
  ASSERT_EQ(h.ecrits.size(), 1U);
  ASSERT_EQ(h.ecrits[0].size(), 37U);
  for (std::size_t i = 0; i < 37; ++i) EXPECT_EQ(h.ecrits[0][i], i);
}

TEST(LiaisonUsb, AReplyThatCameTooLateIsThrownAway) {
  HidEssai h;
  const auto liaison = h.Lie();
  h.file.emplace_back(36, std::uint8_t{7});
  h.file.emplace_back(36, std::uint8_t{8});
  TamponOctets t = Requete('I');
  std::int32_t mode = 0;
  EXPECT_EQ(liaison->Envoie(t, mode), zenikcom::Reussi);
  EXPECT_EQ(t[1], 'I');
  EXPECT_EQ(t[12], 2);
}

TEST(LiaisonUsb, ADeviceThatNeverStopsTalkingIsNoHang) {
  HidEssai h;
  FonctionsHid hid = h.Fonctions();
  hid.lit = [](void*, std::uint8_t* octets, std::size_t n, int) {
    std::fill_n(octets, n, std::uint8_t{5});
    return static_cast<int>(n);
  };
  const auto liaison = zenikcom::LiaisonUsb(
                           Identite, "", [&h] { return h.heure; }, hid)
                           .liaison;
  TamponOctets t = Requete('I');
  std::int32_t mode = 0;
  EXPECT_EQ(liaison->Envoie(t, mode), zenikcom::Reussi);
}

TEST(LiaisonUsb, AnExchangeLastsFiftyMillisecondsAtMost) {
  HidEssai h;
  const auto liaison = h.Lie();
  h.muet = true;
  TamponOctets t = Requete('I');
  std::int32_t mode = 0;
  EXPECT_EQ(liaison->Envoie(t, mode), zenikcom::LectureEchouee);
  EXPECT_EQ(h.heure, 50 * Ms);
  h.dureeEcriture = 30 * Ms;
  h.heure = 0;
  EXPECT_EQ(liaison->Envoie(t, mode), zenikcom::LectureEchouee);
  EXPECT_EQ(h.heure, 50 * Ms) << "the writing counts";
  EXPECT_EQ(h.attentes.back(), 20);
  EXPECT_EQ(liaison->EstConnectee(), 1) << "slow is not gone";
}

TEST(LiaisonUsb, AShortReplyIsNone) {
  HidEssai h;
  const auto liaison = h.Lie();
  FonctionsHid hid = h.Fonctions();
  const auto lit = hid.lit;
  hid.lit = [lit](void* a, std::uint8_t* octets, std::size_t n, int ms) {
    const int lus = lit(a, octets, n, ms);
    return lus > 0 ? lus - 1 : lus;
  };
  const auto court = zenikcom::LiaisonUsb(
                         Identite, "", [&h] { return h.heure; }, hid)
                         .liaison;
  TamponOctets t = Requete('I');
  std::int32_t mode = 0;
  EXPECT_EQ(court->Envoie(t, mode), zenikcom::LectureEchouee);
  EXPECT_EQ(t, Requete('I'));
}

TEST(LiaisonUsb, WhileItIsNotThereItIsLookedForOnceASecond) {
  HidEssai h;
  h.branche = false;
  const auto liaison = h.Lie();
  EXPECT_EQ(h.recherches, 0) << "making a link opens nothing";
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(liaison->EstConnectee(), zenikcom::Absente);
    TamponOctets t = Requete('I');
    std::int32_t mode = 0;
    EXPECT_NE(liaison->Envoie(t, mode), zenikcom::Reussi);
    h.heure += 9 * Ms;
  }
  EXPECT_EQ(h.recherches, 1);
  h.heure = Seconde;
  liaison->EstConnectee();
  EXPECT_EQ(h.recherches, 2);
}

TEST(LiaisonUsb, WhileItIsOpenNobodyLooksForIt) {
  HidEssai h;
  const auto liaison = h.Lie();
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(liaison->EstConnectee(), 1);
    h.heure += Seconde;
  }
  EXPECT_EQ(h.recherches, 1);
  EXPECT_EQ(h.ouverts, 1);
}

TEST(LiaisonUsb, ADeviceWithoutRightsSaysSo) {
  HidEssai h;
  h.accessible = false;
  const auto liaison = h.Lie();
  EXPECT_EQ(liaison->EstConnectee(), zenikcom::SansDroit);
  TamponOctets t = Requete('I');
  std::int32_t mode = 0;
  EXPECT_EQ(liaison->Envoie(t, mode), zenikcom::SansDroit);
  h.accessible = true;
  h.heure += Seconde;
  EXPECT_EQ(liaison->EstConnectee(), 1);
}

TEST(LiaisonUsb, AFailedWritingOrReadingClosesTheDevice) {
  for (const bool lecture : {false, true}) {
    HidEssai h;
    const auto liaison = h.Lie();
    EXPECT_EQ(liaison->EstConnectee(), 1);
    (lecture ? h.lectureCassee : h.ecritureCasse) = true;
    TamponOctets t = Requete('I');
    std::int32_t mode = 0;
    EXPECT_EQ(liaison->Envoie(t, mode), lecture ? zenikcom::LectureEchouee : zenikcom::EcritureEchouee);
    EXPECT_EQ(h.fermes, 1);
  }
}

TEST(LiaisonUsb, ClosesWhatItHasOpened) {
  HidEssai h;
  {
    const auto liaison = h.Lie();
    liaison->EstConnectee();
    liaison->Ferme();
    EXPECT_EQ(h.fermes, 1);
    liaison->EstConnectee();
    EXPECT_EQ(h.ouverts, 2) << "closed by hand it is looked for at once";
  }
  EXPECT_EQ(h.fermes, 2);
}

TEST(LiaisonUsb, ALockKeepsASecondProgramOff) {
  const DossierEssai d;
  HidEssai h;
  const auto horloge = [&h] { return h.heure; };
  auto premiere = zenikcom::LiaisonUsb(Identite, d.Chemin("verrou"), horloge, h.Fonctions());
  ASSERT_NE(premiere.liaison, nullptr);
  const auto seconde = zenikcom::LiaisonUsb(Identite, d.Chemin("verrou"), horloge, h.Fonctions());
  EXPECT_EQ(seconde.liaison, nullptr);
  EXPECT_EQ(seconde.refus, Refus::Occupee);
  premiere.liaison.reset();
  EXPECT_NE(zenikcom::LiaisonUsb(Identite, d.Chemin("verrou"), horloge, h.Fonctions()).liaison, nullptr);
}

TEST(LitIdentiteUsb, TakesFourHexadecimalDigitsTwice) {
  EXPECT_EQ(zenikcom::LitIdentiteUsb("1234:abCD"), Identite);
  EXPECT_EQ(zenikcom::LitIdentiteUsb("0000:0001"), (IdentiteUsb{0, 1}));
  for (const char* texte : {"", "1234", "1234:", "1234:ABC", "1234:ABCDE", "123:ABCDE", "1234-ABCD", "12G4:ABCD",
                            "0000:0000", "-123:ABCD", "+123:ABCD", " 123:ABCD", "0x12:ABCD"}) {
    EXPECT_FALSE(zenikcom::LitIdentiteUsb(texte)) << texte;
  }
}

TEST(RegleUdev, NamesVendorAndProductInSmallDigits) {
  const std::string regle = zenikcom::RegleUdev({0x04D8, 0x00FF});
  EXPECT_NE(regle.find("ATTRS{idVendor}==\"04d8\""), std::string::npos) << regle;
  EXPECT_NE(regle.find("ATTRS{idProduct}==\"00ff\""), std::string::npos);
  EXPECT_NE(regle.find("SUBSYSTEM==\"hidraw\""), std::string::npos);
  EXPECT_NE(regle.find("TAG+=\"uaccess\""), std::string::npos);
  EXPECT_TRUE(regle.ends_with("\n"));
  // Every line but the comments is one rule: no line is cut.
  EXPECT_EQ(std::count(regle.begin(), regle.end(), '\n'), 2);
  EXPECT_LT(zenikcom::NomRegleUdev, "73-seat-late.rules");
}

TEST(LiaisonBibliotheque, HandsTheSendingModeOn) {
  const auto liaison = zenikcom::LiaisonBibliotheque(ZENIK_ESSAI, "").liaison;
  ASSERT_NE(liaison, nullptr);
  for (std::int32_t mode : {0, 1}) {
    TamponOctets t = Requete('D');
    EXPECT_EQ(liaison->Envoie(t, mode), zenikcom::Reussi);
    EXPECT_EQ(t[36], mode);
  }
}

TEST(LiaisonBibliotheque, OneThatIsNotThereIsRefusedWithTheReason) {
  const auto ouverture = zenikcom::LiaisonBibliotheque("/nowhere/libzenik.so", "");
  EXPECT_EQ(ouverture.liaison, nullptr);
  EXPECT_EQ(ouverture.refus, Refus::Illisible);
  EXPECT_NE(ouverture.detail.find("/nowhere/libzenik.so"), std::string::npos) << ouverture.detail;
}

TEST(LiaisonBibliotheque, AFileThatIsNoLibraryIsRefused) {
  const DossierEssai d;
  EcritFichier(d.Chemin("lib.so"), "text");
  EXPECT_EQ(zenikcom::LiaisonBibliotheque(d.Chemin("lib.so"), "").refus, Refus::Illisible);
}

TEST(LiaisonBibliotheque, ARelativePathIsNeverLookedFor) {
  EXPECT_EQ(zenikcom::LiaisonBibliotheque("libm.so.6", "").refus, Refus::CheminRelatif);
  EXPECT_EQ(zenikcom::LiaisonBibliotheque("", "").refus, Refus::CheminRelatif);
}

TEST(LiaisonBibliotheque, EachMissingNameIsTold) {
  const std::vector<std::pair<const char*, const char*>> sans{{ZENIK_SANS_CONNECTED, "ZENIK_IsConnected"},
                                                              {ZENIK_SANS_SEND, "ZENIK_Send"},
                                                              {ZENIK_SANS_CLOSE, "ZENIK_Close"}};
  for (const auto& [chemin, nom] : sans) {
    const auto ouverture = zenikcom::LiaisonBibliotheque(chemin, "");
    EXPECT_EQ(ouverture.liaison, nullptr);
    EXPECT_EQ(ouverture.refus, Refus::SymboleManquant);
    EXPECT_EQ(ouverture.detail, nom);
  }
}

TEST(LiaisonBibliotheque, ALockKeepsASecondProgramOff) {
  const DossierEssai d;
  const auto premiere = zenikcom::LiaisonBibliotheque(ZENIK_ESSAI, d.Chemin("verrou"));
  ASSERT_NE(premiere.liaison, nullptr);
  EXPECT_EQ(zenikcom::LiaisonBibliotheque(ZENIK_ESSAI, d.Chemin("verrou")).refus, Refus::Occupee);
}

}  // namespace
