#include "tools/zanvel_template/main.h"

int main(int argc, char **argv)
{
    return z_tool_main(argc, argv);
}
