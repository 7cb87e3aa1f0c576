// The worker of a window as a script: what the user does before the kernel of a pass runs, on this thread, or while
// it runs on another one.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ServicesPasse.h"

namespace essai {

class PasseEcrite {
 public:
  // The services of a window, with counts behind them.
  void Offre() {
    using namespace ovelin;
    SvcPasse.Jusque = [this](const PasseInterruptible& passe) {
      ++passes;
      seule = passe.seule;
      sansFleches = passe.sansFleches;
      bool echappe = false;
      std::thread fil;
      if (aCote) fil = std::thread(passe.noyau);
      if (!script.empty()) {
        const auto pas = std::move(script.front());
        script.pop_front();
        echappe = pas();
      }
      if (echappe) passe.arrete();
      if (fil.joinable()) {
        fil.join();
      } else {
        passe.noyau();
      }
      passe.pouls();
      return echappe;
    };
    SvcPasse.MontreSansTrajet = [this] {
      montrees = Doc.TraceInitial;
      tracesMontrees += Doc.TraceDecale.size();
    };
    SvcPasse.ChangementRepris = [this] { ++repris; };
    Svc.Rafraichit = [this] { ++rafraichis; };
  }
  // Readings, too.
  void OffreLectures() {
    using namespace ovelin;
    SvcPasse.Lit = [this](const std::function<void()>& noyau, const std::function<void()>& arrete) {
      ++lectures;
      const bool echappe = lecture && lecture();
      if (echappe) arrete();
      noyau();
      return echappe;
    };
  }
  static void Refuse() { ovelin::SvcPasse.Jusque = nullptr; }
  void Remet() {
    script.clear();
    passes = repris = rafraichis = 0;
    tracesMontrees = 0;
    montrees.clear();
  }

  // One step a kernel; true: Escape.
  std::deque<std::function<bool()>> script;
  std::function<bool()> lecture;  // likewise, of each reading
  int lectures = 0;
  int passes = 0, repris = 0, rafraichis = 0;
  bool aCote = false;                        // a thread of its own for each kernel
  bool seule = false, sansFleches = false;   // of the last one
  std::vector<ovelin::PointTrace> montrees;  // the drawing as the picture showed it last without a path
  std::size_t tracesMontrees = 0;
};

// A command as it is without a pass, with one, taken back, and with another change while it computes: the same
// document to the bit, one refresh.
inline void VerifieCommande(PasseEcrite& passe, const std::function<void()>& commande,
                            const std::function<void()>& suivante) {
  using namespace ovelin;
  const Document avant = Doc;
  const Reglages reglages = Regl;
  const auto recommence = [&] {
    Doc = avant;
    Regl = reglages;
    passe.Remet();
  };
  passe.Offre();
  PasseEcrite::Refuse();
  commande();
  const Document seule = Doc;
  suivante();
  const Document deux = Doc;
  ASSERT_FALSE(seule == avant);

  recommence();
  passe.Offre();
  commande();
  EXPECT_EQ(passe.passes, 1);
  EXPECT_EQ(passe.rafraichis, 1);
  EXPECT_EQ(passe.tracesMontrees, 0U);
  EXPECT_TRUE(passe.montrees == seule.TraceInitial);
  EXPECT_TRUE(Doc.TraceDecale == seule.TraceDecale);
  EXPECT_TRUE(Doc == seule);

  recommence();
  passe.script = {[] { return true; }};
  commande();
  EXPECT_EQ(passe.passes, 1);
  EXPECT_EQ(passe.repris, 1);
  EXPECT_EQ(passe.rafraichis, 0);
  EXPECT_TRUE(Doc == avant);
  EXPECT_TRUE(Regl == reglages);

  recommence();
  passe.script = {[&] {
    suivante();
    return false;
  }};
  commande();
  EXPECT_EQ(passe.passes, 2) << "the one that was ended, and that of both changes";
  EXPECT_EQ(passe.rafraichis, 1);
  EXPECT_TRUE(Doc.TraceInitial == deux.TraceInitial);
  EXPECT_TRUE(Doc.TraceDecale == deux.TraceDecale);
  EXPECT_TRUE(Doc == deux);

  recommence();
  passe.script = {[&] {
                    suivante();
                    return false;
                  },
                  [] { return true; }};
  commande();
  EXPECT_EQ(passe.repris, 1);
  EXPECT_TRUE(Doc == avant);
  EXPECT_TRUE(Regl == reglages);
  recommence();
}

}  // namespace essai
