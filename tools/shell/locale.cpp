#include "tools/shell/locale.h"

#include <langinfo.h>

#include <clocale>
#include <string_view>

namespace shell {

void UseUtf8() {
  std::setlocale(LC_CTYPE, "");
  if (std::string_view(nl_langinfo(CODESET)) != "UTF-8") std::setlocale(LC_CTYPE, "C.UTF-8");
}

}  // namespace shell
