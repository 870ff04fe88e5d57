# The targets KVOCAEIO::KVOCAEIO (shared) and KVOCAEIO::static, as far as they are installed. They
# depend on no other package.
include(${CMAKE_CURRENT_LIST_DIR}/KVOCAEIOShared.cmake OPTIONAL)
include(${CMAKE_CURRENT_LIST_DIR}/KVOCAEIOStatic.cmake OPTIONAL)
