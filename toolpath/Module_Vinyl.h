// The drag knife: where closed cuts begin, and how they are lengthened. False: the user has taken it back while the
// traces were computed.
#pragma once

namespace ovelin {

// The arrow, 0 to 7: 0 upper left, 1 upper right, 2 lower right, 3 lower left, 4 top, 5 right, 6 bottom, 7 left.
// Another number does nothing.
bool ChoixDepart(int index);
// Option1 / CB_Prolongement: lengthening of closed traces on or off; all traces follow.
bool RegleProlongement(bool actif);

}  // namespace ovelin
