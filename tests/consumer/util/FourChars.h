// The consumer's own header of this name. Library headers must never pick it
// up in place of their own: every library header is compiled with this
// folder first on the include path (see CMakeLists.txt).
#pragma once
#define CONSUMER_OWN_FOURCHARS_H

namespace consumer {
struct FourChars
{
    char text[4];
};
} // namespace consumer
