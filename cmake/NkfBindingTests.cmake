# Tests of the managed binding; included by NkfBinding.cmake when tests are built.
