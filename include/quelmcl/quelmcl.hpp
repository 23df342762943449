/// @file quelmcl.hpp
/// Everything the Quelm Class Library offers, but for the bridges to libraries that it does not need itself: iformat.hpp
/// (std::format), ilibfmt.hpp (libfmt) and istdexcp.hpp (standard exceptions) are included by those who use them. A
/// program that uses a few classes only includes their headers instead.
#ifndef QUELMCL_QUELMCL_HPP
#define QUELMCL_QUELMCL_HPP

#include <quelmcl/i0string.hpp>
#include <quelmcl/ibase.hpp>
#include <quelmcl/ibuffer.hpp>
#include <quelmcl/icursor.hpp>
#include <quelmcl/idate.hpp>
#include <quelmcl/idbcsb.hpp>
#include <quelmcl/idefs.hpp>
#include <quelmcl/ierrinfo.hpp>
#include <quelmcl/iexcbase.hpp>
#include <quelmcl/iexcept.hpp>
#include <quelmcl/iilnseq.hpp>
#include <quelmcl/ilnseq.hpp>
#include <quelmcl/imsgtext.hpp>
#include <quelmcl/iplatfrm.hpp>
#include <quelmcl/istartup.hpp>
#include <quelmcl/istparse.hpp>
#include <quelmcl/istrbld.hpp>
#include <quelmcl/istrchar.hpp>
#include <quelmcl/istrenum.hpp>
#include <quelmcl/istrhash.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/istrlit.hpp>
#include <quelmcl/istrord.hpp>
#include <quelmcl/istrstd.hpp>
#include <quelmcl/istrtest.hpp>
#include <quelmcl/istrword.hpp>
#include <quelmcl/itime.hpp>
#include <quelmcl/itrace.hpp>
#include <quelmcl/ivbase.hpp>

#endif
