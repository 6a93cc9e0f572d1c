#include "app/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

namespace StandardStreams {

void keepTheirPlaces()
{
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (fcntl(stream, F_GETFD) < 0)
            (void)open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

} // namespace StandardStreams
