/*
 * The datastore behind libconfd, for the host tool and the tests.
 *
 * A Schema is the data model loaded from a directory of YANG modules. A
 * Datastore holds a running and a candidate configuration of that model;
 * serving it at an address makes maapi_connect / cdb_connect with that
 * address reach it, in-process. The change walk tells which validation
 * points fire for the candidate, and builds the keypaths and new values a
 * validation callback receives.
 *
 * Every failure is a confdstore::Error whose text names the file (or
 * directory) and the problem, with libyang's message for data that violates
 * the model; that message may quote the input, newlines included.
 */
#ifndef CONFD_DATASTORE_H
#define CONFD_DATASTORE_H

#include <sys/socket.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "confd_lib.h"

namespace confd::detail {
class Schema;
class Store;
class ChangeIndex;
struct KeypathData;
class TypedValue;
}  // namespace confd::detail

namespace confdstore {

class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

enum class DataFormat { xml, json };

// The largest configuration file a Datastore loads unless told otherwise.
constexpr size_t kDefaultMaxFileSize = size_t{512} << 20;

// A validation point declared in the model (ipapp-ext:validate). Its node
// pointers stay valid while the Schema, or a Datastore of it, lives.
struct ValidationPoint {
    std::string name;
    std::string node_path;  // schema path of the node, "/config/interface/l3"
    bool call_once = false;
    std::vector<std::string> dependencies;      // schema paths, as written in the model
    std::string description;                    // one line, may be empty
    const void* node = nullptr;                 // the schema node, for the calls below
    std::vector<const void*> dependency_nodes;  // the schema nodes of dependencies
};

// A keypath as a validation callback receives it; owns its key buffers.
class Keypath {
  public:
    const confd_hkeypath_t& get() const;
    std::string text() const;  // confd_pp_kpath

  private:
    friend class Datastore;
    friend class Instance;
    explicit Keypath(std::shared_ptr<const confd::detail::KeypathData> data);
    std::shared_ptr<const confd::detail::KeypathData> data_;
};

// A value that owns its buffer.
class Value {
  public:
    confd_value_t get() const;  // valid while this Value lives

  private:
    friend class Datastore;
    friend class Instance;
    explicit Value(std::shared_ptr<const confd::detail::TypedValue> value);
    std::shared_ptr<const confd::detail::TypedValue> value_;
};

// One candidate instance of a validation point's node.
class Instance {
  public:
    Keypath keypath() const;
    Value new_value() const;  // a leaf's value; the node's C_XMLTAG otherwise

  private:
    friend class Datastore;
    friend class ChangeSet;
    Instance(std::shared_ptr<const void> tree, const void* node);
    std::shared_ptr<const void> tree_;
    const void* node_;
};

class Schema {
  public:
    // Loads every *.yang file of the directory.
    static Schema load(const std::string& directory);

    std::vector<ValidationPoint> validation_points() const;

    // The schema header of a module, as a schema compiler emits it.
    std::string header(const std::string& module, const std::string& macro_prefix) const;

  private:
    friend class Datastore;
    explicit Schema(std::shared_ptr<const confd::detail::Schema> impl);
    std::shared_ptr<const confd::detail::Schema> impl_;
};

// Unregisters a served datastore when destroyed.
class Registration {
  public:
    Registration() = default;
    Registration(Registration&& other) noexcept;
    Registration& operator=(Registration&& other) noexcept;
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    ~Registration();

  private:
    friend class Datastore;
    explicit Registration(std::string address);
    std::string address_;
};

// What differs between running and candidate, found in one walk over both.
class ChangeSet {
  public:
    // The point's node, a descendant of it or a dependency differs.
    bool fires(const ValidationPoint& point) const;

    // Candidate instances of the point's node that were created or below
    // which something differs, in delivery order.
    std::vector<Instance> changed_instances(const ValidationPoint& point) const;

  private:
    friend class Datastore;
    explicit ChangeSet(std::shared_ptr<const confd::detail::ChangeIndex> index);
    std::shared_ptr<const confd::detail::ChangeIndex> index_;
};

class Datastore {
  public:
    // Running and candidate start empty.
    explicit Datastore(const Schema& schema);

    // Loads a configuration file, XML (.xml) or JSON (.json), validated
    // against the model. The file is read whole, every read checked; a file
    // (or an input that never ends) longer than max_bytes is refused.
    void load_running(const std::string& file, size_t max_bytes = kDefaultMaxFileSize);
    void load_candidate(const std::string& file, size_t max_bytes = kDefaultMaxFileSize);
    // The same from text; name stands for the file in error messages. The
    // text may start with a UTF-8 byte-order mark, which is skipped; a NUL
    // byte anywhere, and in JSON anything but blanks after the top-level
    // value or a value that is not closed, are refused.
    void set_running(const std::string& text, DataFormat format, const std::string& name);
    void set_candidate(const std::string& text, DataFormat format, const std::string& name);
    // Running becomes the candidate's tree, as after a commit, without
    // parsing anything again; the candidate stays as it is.
    void copy_candidate_to_running();

    // Makes the datastore reachable at address until the Registration ends.
    Registration serve(const struct sockaddr* address, socklen_t length) const;

    ChangeSet changes() const;

    // Every candidate instance of the point's node, in delivery order.
    std::vector<Instance> instances(const ValidationPoint& point) const;

    // The keypath and new value of a call-once point: the node's schema path
    // and its C_XMLTAG.
    Keypath schema_keypath(const ValidationPoint& point) const;
    Value schema_value(const ValidationPoint& point) const;

    // The keypath of a path ("/config/interface/l3{5}/ipv6/nd/ra"), keys
    // typed by their leaves; the instance need not exist.
    Keypath keypath(const std::string& path) const;

  private:
    std::shared_ptr<confd::detail::Store> impl_;
};

}  // namespace confdstore

#endif
