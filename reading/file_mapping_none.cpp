#include "reading/file_mapping.hpp"

FileMapping::FileMapping(std::FILE* /*file*/, std::size_t /*size*/) {}

FileMapping::~FileMapping() = default;

void FileMapping::Release(std::size_t /*size*/) const {}
