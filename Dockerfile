# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0
#
# From a bare Debian 12 to all tests passed, and the tool installed:
#
#     docker build -t xmlframework .
#     docker run --rm -v "$PWD:/data" xmlframework check --strict mics.xml

FROM debian:12 AS build
RUN apt-get update && apt-get install -y --no-install-recommends ca-certificates git && rm -rf /var/lib/apt/lists/*
COPY . /src
WORKDIR /src
RUN ./build.sh test
RUN ./build.sh package

FROM debian:12-slim
COPY --from=build /src/build/packages /tmp/packages
RUN apt-get update && apt-get install -y --no-install-recommends \
        /tmp/packages/libnxcore1_*.deb /tmp/packages/libxmlframework1_*.deb /tmp/packages/xmlframework_*.deb && \
    rm -rf /var/lib/apt/lists/* /tmp/packages
WORKDIR /data
ENTRYPOINT ["xmlframework"]
