/// What a build without npm has in the place of the page.
#include "view/page.h"

namespace kvocaeio::host {

std::string_view viewPage() {
    return {};
}

}  // namespace kvocaeio::host
