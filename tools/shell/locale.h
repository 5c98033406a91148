// Texts are UTF-8 here, whatever the terminal's locale.
#ifndef KYODBC_TOOLS_SHELL_LOCALE_H
#define KYODBC_TOOLS_SHELL_LOCALE_H

namespace shell {

// Makes the C library read and write characters in UTF-8. Nothing else of the locale changes.
void UseUtf8();

}  // namespace shell

#endif
