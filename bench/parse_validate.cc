// ly-parse-validate YANG_DIR FILE...: libyang's own work on configuration
// files, as the benchmarks' yardstick: a context with every module of the
// directory, then each file parsed and validated the way the datastore does
// (strict, configuration only).
#include <dirent.h>
#include <libyang/libyang.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

std::vector<std::string> YangFiles(const std::string& directory) {
    std::vector<std::string> files;
    DIR* dir = opendir(directory.c_str());
    if (dir == nullptr) {
        return files;
    }
    for (dirent* entry = readdir(dir); entry != nullptr; entry = readdir(dir)) {
        const std::string name = entry->d_name;
        if (name.size() > 5 && name.compare(name.size() - 5, 5, ".yang") == 0) {
            files.push_back(directory + "/" + name);
        }
    }
    closedir(dir);
    return files;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: ly-parse-validate YANG_DIR FILE...\n");
        return 2;
    }
    ly_ctx* context = nullptr;
    if (ly_ctx_new(argv[1], 0, &context) != LY_SUCCESS) {
        return 1;
    }
    for (const std::string& file : YangFiles(argv[1])) {
        if (lys_parse_path(context, file.c_str(), LYS_IN_YANG, nullptr) != LY_SUCCESS) {
            ly_ctx_destroy(context);
            return 1;
        }
    }
    int status = 0;
    for (int i = 2; i < argc; ++i) {
        lyd_node* tree = nullptr;
        if (lyd_parse_data_path(context, argv[i], LYD_XML, LYD_PARSE_STRICT, LYD_VALIDATE_NO_STATE,
                                &tree) != LY_SUCCESS) {
            std::fprintf(stderr, "%s: not valid\n", argv[i]);
            status = 1;
        }
        lyd_free_all(tree);
    }
    ly_ctx_destroy(context);
    return status;
}
