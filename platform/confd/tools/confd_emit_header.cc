/*
 * confd-emit-header: writes the schema header of one module of a YANG
 * directory to standard output, as a schema compiler would.
 *
 *   confd-emit-header YANG_DIR MODULE MACRO_PREFIX > header.h
 */
#include <cstdio>
#include <iostream>

#include "confd_datastore.h"

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: confd-emit-header YANG_DIR MODULE MACRO_PREFIX\n";
        return 2;
    }
    try {
        std::cout << confdstore::Schema::load(argv[1]).header(argv[2], argv[3]);
    } catch (const confdstore::Error& error) {
        std::cerr << "confd-emit-header: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
