// The lists' export macros in the pattern of their headers, without a standard library: another
// compiler's rules are checked where only its front end is at hand.
#include "../../src/export.h"

struct post {
    int kod;
};

template <class T> class lista {
  public:
    lista();
    int Ny(T* ny);
    static T m_noll;

  protected:
    virtual int Sortval(int nyckel);
};

#if defined(WRONG_WAY_ROUND) // must not compile
extern template class KVARNPROG_API lista<post>;
#else
extern template class KVARNPROG_LIST_DECLARE lista<post>;
#endif

class KVARNPROG_API Klass : public lista<post> {
  public:
    Klass();
    virtual ~Klass();
    static char const* const NAMN;
};

#if defined(KVARNPROG_BUILDING)
template <class T> lista<T>::lista() {}
template <class T> int lista<T>::Ny(T* ny) {
    return ny == nullptr ? Sortval(0) : 1;
}
template <class T> int lista<T>::Sortval(int nyckel) {
    return nyckel;
}
template <class T> T lista<T>::m_noll{};

template class KVARNPROG_LIST_DEFINE lista<post>;

Klass::Klass() {}
Klass::~Klass() {}
char const* const Klass::NAMN = "namn";
#else
int Use() {
    Klass klass;
    return klass.Ny(&lista<post>::m_noll) + *Klass::NAMN;
}
#endif
