IN;SP1;PE7<=O]`O]`?Yf__?\b@Yf__@\b;PU;SP0;
