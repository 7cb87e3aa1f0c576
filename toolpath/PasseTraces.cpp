// The change in force, its pass, and the way back.
#include "toolpath/PasseTraces.h"

#include <atomic>
#include <unordered_set>
#include <utility>

#include "base/Arret.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/ReglagesCourants.h"
#include "core/ServicesPasse.h"
#include "core/Textes.h"
#include "toolpath/CalculDecalage.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/NoyauPasse.h"

namespace ovelin {

namespace {

// What the traces of a pass are due for.
struct Dues {
  std::vector<Code2> codes;
  bool toutes = false;

  [[nodiscard]] bool Vide() const { return codes.empty() && !toutes; }
  void Ajoute(const std::vector<Code2>& autres, bool tout) {
    toutes = toutes || tout;
    std::unordered_set<std::uint32_t> presents;
    for (const Code2 code : codes) presents.insert(code.Cle());
    for (const Code2 code : autres) {
      if (presents.insert(code.Cle()).second) codes.push_back(code);
    }
  }
};

// The pass at work; null: none is. Its own thread sees none of this.
struct EnCours {
  base::Arret arret;
  Dues venues;  // changes that have come since its kernel began
};
EnCours* PasseCourante = nullptr;
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { PasseCourante = nullptr; });

// What of the tool the traces depend on, as the fields of the tool leave it in force and in the files.
struct Outil {
  double rayon = RayonFraise;
  double encoche = LargeurEncoche;
  std::int16_t recouvrement = PCPoche;

  void Remet() const {
    const bool autreEncoche = LargeurEncoche != encoche;
    const bool autreRecouvrement = PCPoche != recouvrement;
    RayonFraise = rayon;
    LargeurEncoche = encoche;
    PCPoche = recouvrement;
    if (autreEncoche) EcritOutil();
    if (autreRecouvrement) EcritOptions();
  }
};

// The document in force without its traces, which stay where they are.
Document CopieSansTraces() {
  std::vector<SequenceDecalee> traces = std::exchange(TraceDecale, {});
  struct Rend {
    std::vector<SequenceDecalee>& traces;
    ~Rend() { TraceDecale = std::move(traces); }
  } const rend{traces};
  return Doc;
}

}  // namespace

struct PasseTraces::Avant {
  Document document = CopieSansTraces();
  Outil outil;
};

// The copy is made only where a pass may take long: a move of a small drawing costs nothing more.
PasseTraces::PasseTraces() {
  if (!SvcPasse.Jusque || PasseCourante != nullptr || TraceInitial.empty()) return;
  if (PoidsTraces(Doc, ListeCodes()) >= SeuilPasse) avant_ = std::make_unique<Avant>();
}

PasseTraces::~PasseTraces() = default;

IssuePasse PasseTraces::Suit(const std::vector<Code2>& codes) { return Suit(codes, false); }
IssuePasse PasseTraces::SuitTout() { return Suit(ListeCodes(), true); }

IssuePasse PasseTraces::Suit(std::vector<Code2> codes, bool toutes) {
  if (PasseCourante != nullptr) {
    PasseCourante->venues.Ajoute(codes, toutes);
    PasseCourante->arret.Demande();
    return IssuePasse::Differee;
  }
  if (avant_ && PoidsTraces(Doc, codes) >= SeuilPasse) return Calcule(std::move(codes), toutes);
  if (toutes) {
    RecalculDecalages();
  } else {
    RefaitDecalages(codes);
  }
  return IssuePasse::EnVigueur;
}

namespace {

// A pass at work, from its first kernel to its last: drawing and tool come back with the traces where it is left on
// any way but the good one, want of memory included.
class Ouvrage : base::SansCopie {
 public:
  Ouvrage(Document& document, const Outil& outil, Dues dues)
      : document_(document), outil_(outil), dues_(std::move(dues)), traces_(std::exchange(TraceDecale, {})) {
    PasseCourante = &enCours_;
  }
  ~Ouvrage() {
    PasseCourante = nullptr;
    if (tenu_) return;
    document_.TraceDecale = std::move(traces_);
    Doc = std::move(document_);
    outil_.Remet();
  }

  // Until a kernel comes to its end undisturbed. False: the user has taken the change back.
  bool Mene() {
    for (;;) {
      if (dues_.toutes) dues_.codes = ListeCodes();
      const TravailTraces travail{CopieSansTraces(), dues_.codes, dues_.toutes,
                                  ParametresTraceDe(Regl, Prolongement != Faux)};
      IssueTraces issue;
      if (!Lance(travail, issue)) return false;
      const Dues venues = std::exchange(enCours_.venues, {});
      const bool meme = MemeSource(travail.document, Doc);
      if (issue.entiere && venues.Vide() && meme) {
        Tient(std::move(issue));
        return true;
      }
      // A drawing that somebody has changed without a word is computed whole.
      dues_.Ajoute(venues.codes, venues.toutes || (venues.Vide() && !meme));
    }
  }

 private:
  // One kernel over its own copies, with the picture of what it computes for. False: taken back.
  bool Lance(const TravailTraces& travail, IssueTraces& issue) {
    enCours_.arret.Leve();
    EncombrementGeneral();
    SvcPasse.MontreSansTrajet();
    Svc.AvancementDebut(Traduire(Textes::CalculQuiSAnnule), std::ssize(travail.codes));
    std::atomic<long> commences{0};
    long montres = 0;
    const auto montre = [&] {
      for (const long n = commences.load(std::memory_order_relaxed); montres < n; ++montres) Svc.AvancementPlus();
    };
    struct Fin {
      ~Fin() { Svc.AvancementFin(); }
    } const fin;
    return !SvcPasse.Jusque({[&] {
                               issue = CalculePasse(travail, enCours_.arret,
                                                    [&] { commences.fetch_add(1, std::memory_order_relaxed); });
                             },
                             montre, [this] { enCours_.arret.Demande(); }});
  }

  void Tient(IssueTraces&& issue) {
    const bool reussie = issue.reussie;
    TraceDecale = std::move(traces_);
    tenu_ = true;
    PoseTraces(TraceDecale, std::move(issue));
    if (reussie) EffaceStatut();
  }

  Document& document_;
  const Outil& outil_;
  Dues dues_;
  std::vector<SequenceDecalee> traces_;  // those of before, whole
  EnCours enCours_;
  bool tenu_ = false;
};

}  // namespace

IssuePasse PasseTraces::Calcule(std::vector<Code2> codes, bool toutes) {
  {
    Ouvrage ouvrage(avant_->document, avant_->outil, {std::move(codes), toutes});
    if (ouvrage.Mene()) return IssuePasse::EnVigueur;
  }
  SvcPasse.ChangementRepris();
  return IssuePasse::Abandonnee;
}

}  // namespace ovelin
