/* The whole ConfD-compatible API in one include. */
#ifndef CONFD_H
#define CONFD_H

#include "confd_cdb.h"
#include "confd_dp.h"
#include "confd_lib.h"
#include "confd_maapi.h"

#endif /* CONFD_H */
