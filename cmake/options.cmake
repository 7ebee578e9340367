# What is built. A project that takes kxgraph in by add_subdirectory gets the library alone until it asks for more.
include(CMakeDependentOption)

option(KXGRAPH_FORMULA "Formulas that users type (muParser)" ${PROJECT_IS_TOP_LEVEL})
option(KXGRAPH_QT "Pictures, PDF and text metrics by Qt Gui" ${PROJECT_IS_TOP_LEVEL})
cmake_dependent_option(KXGRAPH_WIDGETS "Windows and printing by Qt Widgets" ${PROJECT_IS_TOP_LEVEL} KXGRAPH_QT OFF)
option(KXGRAPH_SQL "Data sets of databases by Qt SQL" ${PROJECT_IS_TOP_LEVEL})
cmake_dependent_option(KXGRAPH_TOOLS "kxplot" ${PROJECT_IS_TOP_LEVEL} "KXGRAPH_FORMULA;KXGRAPH_QT" OFF)
cmake_dependent_option(KXGRAPH_EXAMPLES "The programs of examples/" ${PROJECT_IS_TOP_LEVEL} "KXGRAPH_QT" OFF)
option(KXGRAPH_INSTALL "Rules for cmake --install" ${PROJECT_IS_TOP_LEVEL})
option(BUILD_SHARED_LIBS "Shared libraries" OFF)
# A module needs code without a fixed place: with static libraries all of it is compiled so where this is asked for.
set(kx_designer ${BUILD_SHARED_LIBS})
if(NOT PROJECT_IS_TOP_LEVEL)
    set(kx_designer OFF)
endif()
cmake_dependent_option(KXGRAPH_DESIGNER "FormView as a plugin of Qt Designer, where Qt's tools are installed"
                       ${kx_designer} KXGRAPH_WIDGETS OFF)
if(KXGRAPH_DESIGNER)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
endif()

# For those who work on kxgraph itself.
cmake_dependent_option(KXGRAPH_TESTS "Tests (GoogleTest); BUILD_TESTING switches them off, too" ${PROJECT_IS_TOP_LEVEL}
                       "KXGRAPH_TOOLS;KXGRAPH_EXAMPLES;KXGRAPH_WIDGETS;KXGRAPH_SQL" OFF)
option(KXGRAPH_BENCH "Benchmarks" OFF)
option(KXGRAPH_PEERS "Programs that compare with other libraries" OFF)
option(KXGRAPH_FUZZ "Fuzzing programs (clang alone)" OFF)
option(KXGRAPH_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(KXGRAPH_WERROR "Warnings are errors" OFF)
