/*
 * The in-process agent: which datastore serves which address, which socket
 * is connected to which datastore (as a MAAPI or a CDB socket), and the
 * transactions. Sockets are the caller's file descriptors; connecting binds
 * one to a datastore without any network traffic. All state is behind one
 * lock; the datastores' trees are immutable and shared.
 */
#ifndef CONFD_SRC_AGENT_H
#define CONFD_SRC_AGENT_H

#include <sys/socket.h>

#include <memory>
#include <string>

#include "confd_cdb.h"
#include "confd_lib.h"
#include "data_tree.h"
#include "store.h"

namespace confd::detail {

enum class SocketKind { maapi, cdb };

// The trees a MAAPI transaction reads and compares against.
struct TransactionView {
    std::shared_ptr<const Tree> tree;
    std::shared_ptr<const Tree> running;
};

// "inet:1.2.3.4:4565" for an IPv4 address and port; empty for any other.
std::string address_key(const struct sockaddr* address, socklen_t length);

// Registers store at address; throws confdstore::Error if it is served already.
void serve(const std::string& address, std::shared_ptr<Store> store);
void unserve(const std::string& address);

// Each returns CONFD_OK (or a handle) or CONFD_ERR with confd_errno set.
int connect_socket(int sock, SocketKind kind, const struct sockaddr* address, int length);
int close_socket(int sock, SocketKind kind);
int start_transaction(int sock, enum confd_dbname db);
int finish_transaction(int sock, int thandle);
int transaction(int sock, int thandle, TransactionView& view);
int start_cdb_session(int sock, enum cdb_db_type db);
int end_cdb_session(int sock);
int cdb_tree(int sock, std::shared_ptr<const Tree>& tree);

}  // namespace confd::detail

#endif
