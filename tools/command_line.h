// CLI11's program or command by name only: its header takes long to compile, and few need it.
#ifndef KYODBC_TOOLS_COMMAND_LINE_H
#define KYODBC_TOOLS_COMMAND_LINE_H

namespace CLI {
class App;
}

#endif
