#include "agent.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <map>
#include <mutex>

#include "error_state.h"

namespace confd::detail {
namespace {

struct Session {
    SocketKind kind;
    std::shared_ptr<Store> store;
    std::shared_ptr<const Tree> cdb;  // the tree of a started CDB session
};

struct Transaction {
    int owner;
    std::shared_ptr<Store> store;
    TransactionView view;
};

struct AgentState {
    std::mutex mutex;
    std::map<std::string, std::shared_ptr<Store>> served;
    std::map<int, Session> sessions;
    std::map<int, Transaction> transactions;
    int next_thandle = 1;
};

AgentState& state() {
    static AgentState instance;
    return instance;
}

const char* kind_name(SocketKind kind) {
    return kind == SocketKind::maapi ? "MAAPI" : "CDB";
}

// The session of sock if it is connected as kind; nullptr (and the error
// set) otherwise. The caller holds the lock.
Session* session_of(AgentState& agent, int sock, SocketKind kind) {
    auto found = agent.sessions.find(sock);
    if (found == agent.sessions.end() || found->second.kind != kind) {
        failf(CONFD_ERR_OS, "socket %d is not a connected %s socket", sock, kind_name(kind));
        return nullptr;
    }
    return &found->second;
}

// Runs action(agent, session) under the lock when sock is connected as kind.
template <typename Action>
int with_session(int sock, SocketKind kind, Action action) {
    AgentState& agent = state();
    std::lock_guard<std::mutex> lock(agent.mutex);
    Session* session = session_of(agent, sock, kind);
    return session != nullptr ? action(agent, *session) : CONFD_ERR;
}

// The transaction thandle of the session's datastore; nullptr (and the error
// set) when there is none.
Transaction* transaction_of(AgentState& agent, const Session& session, int thandle) {
    auto found = agent.transactions.find(thandle);
    if (found == agent.transactions.end()) {
        failf(CONFD_ERR_NOEXISTS, "no transaction %d", thandle);
        return nullptr;
    }
    if (found->second.store != session.store) {
        failf(CONFD_ERR_BADSTATE, "transaction %d belongs to another datastore", thandle);
        return nullptr;
    }
    return &found->second;
}

void finish_owned(AgentState& agent, int sock) {
    for (auto it = agent.transactions.begin(); it != agent.transactions.end();) {
        it = it->second.owner == sock ? agent.transactions.erase(it) : std::next(it);
    }
}

}  // namespace

std::string address_key(const struct sockaddr* address, socklen_t length) {
    if (address == nullptr || length < static_cast<socklen_t>(sizeof(sa_family_t))) {
        return "";
    }
    if (address->sa_family != AF_INET || length < static_cast<socklen_t>(sizeof(sockaddr_in))) {
        return "";
    }
    const auto* in = reinterpret_cast<const sockaddr_in*>(address);
    char host[INET_ADDRSTRLEN];
    if (inet_ntop(AF_INET, &in->sin_addr, host, sizeof host) == nullptr) {
        return "";
    }
    return "inet:" + std::string(host) + ":" + std::to_string(ntohs(in->sin_port));
}

void serve(const std::string& address, std::shared_ptr<Store> store) {
    AgentState& agent = state();
    std::lock_guard<std::mutex> lock(agent.mutex);
    if (address.empty()) {
        throw confdstore::Error("cannot serve at an unsupported address");
    }
    if (!agent.served.emplace(address, std::move(store)).second) {
        throw confdstore::Error(address + ": a datastore is served there already");
    }
}

void unserve(const std::string& address) {
    AgentState& agent = state();
    std::lock_guard<std::mutex> lock(agent.mutex);
    agent.served.erase(address);
}

int connect_socket(int sock, SocketKind kind, const struct sockaddr* address, int length) {
    if (sock < 0 || fcntl(sock, F_GETFD) == -1) {
        return failf(CONFD_ERR_OS, "connect: socket %d is not an open file descriptor", sock);
    }
    const std::string key = address_key(address, length < 0 ? 0 : static_cast<socklen_t>(length));
    AgentState& agent = state();
    std::lock_guard<std::mutex> lock(agent.mutex);
    auto served = agent.served.find(key);
    if (key.empty() || served == agent.served.end()) {
        return fail(CONFD_ERR_OS, "connect: connection refused: nothing serves " +
                                      (key.empty() ? std::string("that address") : key));
    }
    // The descriptor is open, so an earlier binding of the same number belongs
    // to a socket that was closed without maapi_close / cdb_close.
    finish_owned(agent, sock);
    agent.sessions[sock] = Session{kind, served->second, nullptr};
    return CONFD_OK;
}

int close_socket(int sock, SocketKind kind) {
    return with_session(sock, kind, [&](AgentState& agent, Session&) {
        finish_owned(agent, sock);
        agent.sessions.erase(sock);
        ::close(sock);
        return CONFD_OK;
    });
}

int start_transaction(int sock, enum confd_dbname db) {
    return with_session(sock, SocketKind::maapi, [&](AgentState& agent, Session& session) {
        if (db != CONFD_CANDIDATE) {
            return failf(CONFD_ERR_NOEXISTS, "start_trans: database %d is not available", db);
        }
        TransactionView view{session.store->candidate(), session.store->running()};
        const int thandle = agent.next_thandle++;
        agent.transactions[thandle] = Transaction{sock, session.store, std::move(view)};
        return thandle;
    });
}

int finish_transaction(int sock, int thandle) {
    return with_session(sock, SocketKind::maapi, [&](AgentState& agent, Session& session) {
        Transaction* found = transaction_of(agent, session, thandle);
        if (found == nullptr) {
            return CONFD_ERR;
        }
        agent.transactions.erase(thandle);
        return CONFD_OK;
    });
}

int transaction(int sock, int thandle, TransactionView& view) {
    return with_session(sock, SocketKind::maapi, [&](AgentState& agent, Session& session) {
        Transaction* found = transaction_of(agent, session, thandle);
        if (found == nullptr) {
            return CONFD_ERR;
        }
        if (found->owner != sock) {
            return failf(CONFD_ERR_BADSTATE, "transaction %d was not started on socket %d", thandle,
                         sock);
        }
        view = found->view;
        return CONFD_OK;
    });
}

int start_cdb_session(int sock, enum cdb_db_type db) {
    return with_session(sock, SocketKind::cdb, [&](AgentState&, Session& session) {
        if (session.cdb) {
            return fail(CONFD_ERR_BADSTATE, "cdb_start_session: a session is started already");
        }
        if (db != CDB_RUNNING && db != CDB_PRE_COMMIT_RUNNING) {
            return failf(CONFD_ERR_NOEXISTS, "cdb_start_session: database %d is not available", db);
        }
        session.cdb = session.store->running();
        return CONFD_OK;
    });
}

int end_cdb_session(int sock) {
    return with_session(sock, SocketKind::cdb, [&](AgentState&, Session& session) {
        if (!session.cdb) {
            return fail(CONFD_ERR_NOSESSION, "cdb_end_session: no session is started");
        }
        session.cdb.reset();
        return CONFD_OK;
    });
}

int cdb_tree(int sock, std::shared_ptr<const Tree>& tree) {
    return with_session(sock, SocketKind::cdb, [&](AgentState&, Session& session) {
        if (!session.cdb) {
            return fail(CONFD_ERR_NOSESSION, "no CDB session is started on this socket");
        }
        tree = session.cdb;
        return CONFD_OK;
    });
}

}  // namespace confd::detail
