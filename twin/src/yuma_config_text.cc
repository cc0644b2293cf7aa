#include "yuma_config_text.h"

#include <xml_wr.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace ipapp_twin {
namespace {

constexpr int32 kIndent = 0;

bool InModel(val_value_t* node, const std::vector<std::string>& modules) {
    const xmlChar* module = val_get_mod_name(node);
    return module != nullptr && std::find(modules.begin(), modules.end(),
                                          reinterpret_cast<const char*>(module)) != modules.end();
}

// A FILE that writes into memory, for the writer that yuma offers.
class MemoryFile {
  public:
    MemoryFile() : file_(open_memstream(&buffer_, &size_)) {
        if (file_ == nullptr) {
            throw std::runtime_error("cannot write the configuration as XML: out of memory");
        }
    }
    ~MemoryFile() {
        if (file_ != nullptr) {
            std::fclose(file_);
        }
        std::free(buffer_);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    FILE* get() const { return file_; }

    std::string Text() {
        const int closed = std::fclose(file_);
        file_ = nullptr;
        if (closed != 0) {
            throw std::runtime_error("cannot write the configuration as XML");
        }
        return std::string(buffer_, size_);
    }

  private:
    char* buffer_ = nullptr;
    size_t size_ = 0;
    FILE* file_;
};

}  // namespace

std::string ModelConfigXml(val_value_t* root, const std::vector<std::string>& modules) {
    MemoryFile file;
    for (val_value_t* node = val_get_first_child(root); node != nullptr;
         node = val_get_next_child(node)) {
        if (!InModel(node, modules)) {
            continue;
        }
        const status_t result = xml_wr_check_open_file(file.get(), node, nullptr, FALSE, FALSE,
                                                       TRUE, 0, kIndent, nullptr);
        if (result != NO_ERR) {
            throw std::runtime_error(std::string("cannot write the configuration as XML: ") +
                                     get_error_string(result));
        }
    }
    return file.Text();
}

}  // namespace ipapp_twin
