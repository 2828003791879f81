#include "app/main.h"

int main(int argc, char **argv)
{
    return z_main_with_unchecked_arguments(argc, argv);
}
