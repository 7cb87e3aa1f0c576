// A change of the drawing or of the tool with the tool path that follows from it. In a window a long one is
// computed beside it, and ends early when the next change comes or when the user takes the change back.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/SansCopie.h"
#include "core/Document.h"

namespace ovelin {

enum class IssuePasse : std::uint8_t {
  EnVigueur,   // the traces are those of the drawing; lists, picture and mark of a change are the caller's
  Differee,    // it came while the pass of another change was at work, which ends and computes both: nothing to do
  Abandonnee,  // the user has taken it back: drawing, tool and traces are those of before
};

// What else the user may do while a pass computes.
enum class Entretemps : std::uint8_t {
  Suite,      // an arrow key or a field of the tool, which end it: one pass computes both
  Ouverture,  // a field of the tool alone: an arrow on a drawing that has just come is a step of its own
  Rien,       // all of it comes behind the pass
};

// Made before anything changes; then the change; then one of those that make the traces follow. Where the window
// offers no pass (ServicesPasse::Jusque), or the traces are there at once, those of CalculDecalage.h do it. An
// object that is left without any of them (a refusal) has done nothing.
//
// While it computes, the document holds the changed drawing and no traces at all: nobody takes those of before for
// those of now. What comes of it is taken if the drawing is still the one that it was computed from.
class PasseTraces : base::SansCopie {
 public:
  PasseTraces();
  // `reprend` puts back what the command changes beside the drawing and the tool of the traces, once these are as
  // before. But for Entretemps::Suite the tool is left to it, too. With Entretemps::Ouverture another drawing
  // comes: the traces of the one in force are kept from now on and the document has none.
  explicit PasseTraces(std::function<void()> reprend, Entretemps entretemps = Entretemps::Suite);
  ~PasseTraces();

  // These paths have changed, and `partis` have left the drawing; their traces go only now, so that they come back
  // where the user takes the change back.
  IssuePasse Suit(const std::vector<Code2>& codes, const std::vector<Code2>& partis = {});
  // This one has.
  IssuePasse SuitUn(Code2 code);
  // All of them, or the tool; and `puis` behind all (RecalculDecalages, then RefaitDecalages).
  IssuePasse SuitTout(const std::vector<Code2>& puis = {});

  // What has changed since may be taken back, by the user or with Reprend.
  [[nodiscard]] bool SeReprend() const { return avant_ != nullptr; }
  // All is as before, without a pass. Nothing where that has been done, or where a change is in force.
  void Reprend();

  // Behind any of them: where the change is in force or comes into force with the other pass.
  static bool Faite(IssuePasse issue) { return issue != IssuePasse::Abandonnee; }

 private:
  struct Avant;
  struct Dues;
  class Ouvrage;
  // True: a pass has it, with that outcome; otherwise the caller computes here.
  bool Confie(Dues&& dues, IssuePasse& issue);

  std::unique_ptr<Avant> avant_;  // what the user may take back; null: nothing, as there is no pass
};

// From this weight on (PoidsTraces) a change is computed beside the window: about a tenth of a second.
inline constexpr std::size_t SeuilPasse = 50000;

}  // namespace ovelin
