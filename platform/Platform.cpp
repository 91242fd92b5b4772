#include "platform/Platform.h"

namespace zorvo {

Platform& platform()
{
    static Platform installed;
    return installed;
}

} // namespace zorvo
