/* confdstore::Schema, Datastore and Registration: the host tool's entry points. */
#include "agent.h"
#include "confd_datastore.h"
#include "data_tree.h"
#include "schema.h"
#include "store.h"

namespace confdstore {

Schema::Schema(std::shared_ptr<const confd::detail::Schema> impl) : impl_(std::move(impl)) {}

Schema Schema::load(const std::string& directory) {
    return Schema(confd::detail::Schema::load(directory));
}

std::vector<ValidationPoint> Schema::validation_points() const {
    return impl_->validation_points();
}

Registration::Registration(std::string address) : address_(std::move(address)) {}

Registration::Registration(Registration&& other) noexcept : address_(std::move(other.address_)) {
    other.address_.clear();
}

Registration& Registration::operator=(Registration&& other) noexcept {
    if (this != &other) {
        if (!address_.empty()) {
            confd::detail::unserve(address_);
        }
        address_ = std::move(other.address_);
        other.address_.clear();
    }
    return *this;
}

Registration::~Registration() {
    if (!address_.empty()) {
        confd::detail::unserve(address_);
    }
}

Datastore::Datastore(const Schema& schema)
    : impl_(std::make_shared<confd::detail::Store>(schema.impl_)) {}

void Datastore::load_running(const std::string& file, size_t max_bytes) {
    impl_->set_running(confd::detail::Tree::load(impl_->schema(), file, max_bytes));
}

void Datastore::load_candidate(const std::string& file, size_t max_bytes) {
    impl_->set_candidate(confd::detail::Tree::load(impl_->schema(), file, max_bytes));
}

void Datastore::set_running(const std::string& text, DataFormat format, const std::string& name) {
    impl_->set_running(confd::detail::Tree::parse(impl_->schema(), text, format, name));
}

void Datastore::set_candidate(const std::string& text, DataFormat format, const std::string& name) {
    impl_->set_candidate(confd::detail::Tree::parse(impl_->schema(), text, format, name));
}

void Datastore::copy_candidate_to_running() {
    impl_->set_running(impl_->candidate());
}

Registration Datastore::serve(const struct sockaddr* address, socklen_t length) const {
    const std::string key = confd::detail::address_key(address, length);
    confd::detail::serve(key, impl_);
    return Registration(key);
}

}  // namespace confdstore
